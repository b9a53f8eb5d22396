#!/usr/bin/env python3
"""A bad network before a service: proxy.py HOST:PORT PORT_FILE

Passes connections on. SIGUSR1: accepts them and lets no byte through. SIGUSR2: breaks and refuses them. SIGHUP: passes
on again, at the same port."""
import asyncio
import os
import signal
import sys

host, port = sys.argv[1].rsplit(":", 1)
connections = set()


async def main():
    passes = asyncio.Event()
    server = own_port = None

    async def pump(reader, writer):
        try:
            while data := await reader.read(1 << 16):
                await passes.wait()
                writer.write(data)
                await writer.drain()
        except ConnectionError:
            pass
        finally:
            writer.close()

    async def serve(reader, writer):
        task = asyncio.current_task()
        connections.add(task)
        try:
            there, back = await asyncio.open_connection(host, int(port))
            await asyncio.gather(pump(reader, back), pump(there, writer))
        except (OSError, asyncio.CancelledError):
            pass
        finally:
            writer.transport.abort()
            connections.discard(task)

    async def listen():
        nonlocal server, own_port
        if not server:
            server = await asyncio.start_server(serve, "127.0.0.1", own_port or 0)
            own_port = server.sockets[0].getsockname()[1]

    async def become(what):
        nonlocal server
        passes.set() if what == signal.SIGHUP else passes.clear()
        if what != signal.SIGUSR2:
            return await listen()
        if server:
            server.close()
            server = None
        for task in list(connections):
            task.cancel()

    loop = asyncio.get_running_loop()
    for what in (signal.SIGHUP, signal.SIGUSR1, signal.SIGUSR2):
        loop.add_signal_handler(what, lambda what=what: loop.create_task(become(what)))
    await become(signal.SIGHUP)
    with open(sys.argv[2] + ".new", "w") as file:
        file.write(str(own_port))
    os.rename(sys.argv[2] + ".new", sys.argv[2])
    await asyncio.Event().wait()


asyncio.run(main())
