#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<Person> SqlStore::person(const std::string& username) {
    Person p;
    p.username = username;
    int active = 0;
    if (!m_statements.one(queries::PersonByName, into(p.realname), into(p.headUuid), into(p.deptId),
                          into(p.passwordHash), into(p.mail), into(active), use(username, "username")))
        return std::nullopt;
    p.active = active != 0;
    return p;
}

std::vector<Person> SqlStore::people() {
    std::vector<Person> people;
    Person p;
    int active = 0;
    m_statements.each(
        "SELECT username, realname, head_uuid, dept_id, password_hash, mail, active FROM person ORDER BY username",
        [&] {
            p.active = active != 0;
            people.push_back(p);
        },
        into(p.username), into(p.realname), into(p.headUuid), into(p.deptId), into(p.passwordHash), into(p.mail),
        into(active));
    return people;
}

void SqlStore::putPerson(const Person& p) {
    const int active = p.active ? 1 : 0;
    m_statements.run(
        "INSERT INTO person (username, realname, head_uuid, dept_id, password_hash, mail, active) "
        "VALUES (:username, :realname, :head, :dept, :hash, :mail, :active) ON CONFLICT (username) DO UPDATE SET "
        "realname = excluded.realname, head_uuid = excluded.head_uuid, dept_id = excluded.dept_id, "
        "password_hash = excluded.password_hash, mail = excluded.mail, active = excluded.active",
        use(p.username, "username"), use(p.realname, "realname"), use(p.headUuid, "head"), use(p.deptId, "dept"),
        use(p.passwordHash, "hash"), use(p.mail, "mail"), use(active, "active"));
}

std::optional<Session> SqlStore::session(const std::string& hash) {
    Session s;
    s.hash = hash;
    if (!m_statements.one(queries::SessionByHash, into(s.username), into(s.createdAt), into(s.seenAt),
                          use(hash, "hash")))
        return std::nullopt;
    return s;
}

void SqlStore::addSession(const Session& s) {
    m_statements.run(
        "INSERT INTO web_session (hash, username, created_at, seen_at) VALUES (:hash, :username, :created, :seen)",
        use(s.hash, "hash"), use(s.username, "username"), use(s.createdAt, "created"), use(s.seenAt, "seen"));
}

void SqlStore::touchSession(const std::string& hash, std::int64_t seenAt) {
    m_statements.run("UPDATE web_session SET seen_at = :seen WHERE hash = :hash", use(seenAt, "seen"),
                     use(hash, "hash"));
}

void SqlStore::removeSession(const std::string& hash) {
    m_statements.run("DELETE FROM web_session WHERE hash = :hash", use(hash, "hash"));
}

void SqlStore::removeSessionsOf(const std::string& username) {
    m_statements.run("DELETE FROM web_session WHERE username = :username", use(username, "username"));
}

void SqlStore::removeSessionsSeenBefore(std::int64_t time) {
    m_statements.run("DELETE FROM web_session WHERE seen_at < :before", use(time, "before"));
}

LoginAttempts SqlStore::loginAttempts(const std::string& username, const std::string& address) {
    LoginAttempts attempts;
    m_statements.one(queries::AttemptsOf, into(attempts.since), into(attempts.count), use(username, "username"),
                     use(address, "address"));
    return attempts;
}

void SqlStore::putLoginAttempts(const std::string& username, const std::string& address,
                                const LoginAttempts& attempts) {
    m_statements.run(
        "INSERT INTO login_attempt (username, address, since, attempts) VALUES (:username, :address, :since, :count) "
        "ON CONFLICT (username, address) DO UPDATE SET since = excluded.since, attempts = excluded.attempts",
        use(username, "username"), use(address, "address"), use(attempts.since, "since"), use(attempts.count, "count"));
}

void SqlStore::removeLoginAttempts(const std::string& username, const std::string& address) {
    m_statements.run("DELETE FROM login_attempt WHERE username = :username AND address = :address",
                     use(username, "username"), use(address, "address"));
}

void SqlStore::removeLoginAttemptsBefore(std::int64_t time) {
    m_statements.run("DELETE FROM login_attempt WHERE since < :before", use(time, "before"));
}

}  // namespace disclosure
