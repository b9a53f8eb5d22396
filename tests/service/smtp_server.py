"""A mail server on a free loopback port that keeps what it is given.

Each mail becomes a line of JSON in OUT: where it went, its headers and text as a reader would see them, and the number
of the connection it came on. With PASSWORD it asks for the user "sender" and that password.
"""
import argparse
import asyncio
import email
import email.policy
import json
import logging
import os
import warnings

from aiosmtpd.smtp import SMTP, AuthResult


class Keeper:
    def __init__(self, out, refused, scan_seconds):
        self.out = out
        self.scan_seconds = scan_seconds
        self.refused = refused

    async def handle_RCPT(self, server, session, envelope, address, options):
        if address == self.refused:
            return "550 no such mailbox"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        mail = email.message_from_bytes(envelope.content, policy=email.policy.default)
        line = {
            "from": envelope.mail_from,
            "to": envelope.rcpt_tos,
            "names": sorted(name.lower() for name in mail.keys()),
            "headers": {name.lower(): str(value) for name, value in mail.items()},
            "text": mail.get_content(),
            "longest": max(len(line) for line in envelope.content.splitlines()),
            "ascii": envelope.content.isascii(),
            "connection": server.number,
        }
        with open(self.out, "a", encoding="utf-8") as file:
            file.write(json.dumps(line) + "\n")
        await asyncio.sleep(self.scan_seconds)
        return "250 kept"


class Greeter(asyncio.Protocol):
    def __init__(self, greeting):
        self.greeting = greeting

    def connection_made(self, transport):
        transport.write(self.greeting.encode() + b"\r\n")
        transport.close()


async def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--port-file", required=True)
    parser.add_argument("--out", required=True)
    parser.add_argument("--refuse")
    parser.add_argument("--password")
    parser.add_argument("--greeting", help="is all that it says")
    parser.add_argument("--scan-seconds", type=float, default=0, help="how long it thinks about a mail it has")
    arguments = parser.parse_args()
    connections = 0

    def log_in(server, session, envelope, mechanism, words):
        good = words.login == b"sender" and words.password == arguments.password.encode()
        return AuthResult(success=good, handled=False)

    def connected():
        nonlocal connections
        connections += 1
        if arguments.greeting:
            return Greeter(arguments.greeting)
        server = SMTP(Keeper(arguments.out, arguments.refuse, arguments.scan_seconds), hostname="localhost",
                      authenticator=log_in if arguments.password else None,
                      auth_required=bool(arguments.password), auth_require_tls=False)
        server.number = connections
        return server

    server = await asyncio.get_running_loop().create_server(connected, "127.0.0.1", arguments.port)
    draft = arguments.port_file + ".new"
    with open(draft, "w") as file:
        file.write(str(server.sockets[0].getsockname()[1]))
    os.rename(draft, arguments.port_file)
    await server.serve_forever()


logging.disable()
warnings.simplefilter("ignore")  # that passwords go unencrypted is on purpose here
asyncio.run(main())
