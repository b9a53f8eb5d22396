#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<Person> SqlStore::person(const std::string& username) {
    Person p;
    p.username = username;
    soci::statement row = (m_sql->prepare << queries::PersonByName, into(p.realname), into(p.headUuid), into(p.deptId),
                           into(p.passwordHash), into(p.mail), use(username, "username"));
    if (!row.execute(true))
        return std::nullopt;
    return p;
}

std::vector<Person> SqlStore::people() {
    std::vector<Person> found;
    Person p;
    soci::statement rows =
        (m_sql->prepare
             << "SELECT username, realname, head_uuid, dept_id, password_hash, mail FROM person ORDER BY username",
         into(p.username), into(p.realname), into(p.headUuid), into(p.deptId), into(p.passwordHash), into(p.mail));
    rows.execute();
    while (rows.fetch())
        found.push_back(p);
    return found;
}

void SqlStore::putPerson(const Person& p) {
    run("INSERT INTO person (username, realname, head_uuid, dept_id, password_hash, mail) "
        "VALUES (:username, :realname, :head, :dept, :hash, :mail) ON CONFLICT (username) DO UPDATE SET "
        "realname = excluded.realname, head_uuid = excluded.head_uuid, dept_id = excluded.dept_id, "
        "password_hash = excluded.password_hash, mail = excluded.mail",
        use(p.username, "username"), use(p.realname, "realname"), use(p.headUuid, "head"), use(p.deptId, "dept"),
        use(p.passwordHash, "hash"), use(p.mail, "mail"));
}

std::optional<Session> SqlStore::session(const std::string& hash) {
    Session s;
    s.hash = hash;
    long long createdAt = 0;
    long long seenAt = 0;
    soci::statement row =
        (m_sql->prepare << queries::SessionByHash, into(s.username), into(createdAt), into(seenAt), use(hash, "hash"));
    if (!row.execute(true))
        return std::nullopt;
    s.createdAt = createdAt;
    s.seenAt = seenAt;
    return s;
}

void SqlStore::addSession(const Session& s) {
    const long long createdAt = s.createdAt;
    const long long seenAt = s.seenAt;
    run("INSERT INTO web_session (hash, username, created_at, seen_at) VALUES (:hash, :username, :created, :seen)",
        use(s.hash, "hash"), use(s.username, "username"), use(createdAt, "created"), use(seenAt, "seen"));
}

void SqlStore::touchSession(const std::string& hash, std::int64_t seenAt) {
    const long long time = seenAt;
    run("UPDATE web_session SET seen_at = :seen WHERE hash = :hash", use(time, "seen"), use(hash, "hash"));
}

void SqlStore::removeSession(const std::string& hash) {
    run("DELETE FROM web_session WHERE hash = :hash", use(hash, "hash"));
}

void SqlStore::removeSessionsOf(const std::string& username) {
    run("DELETE FROM web_session WHERE username = :username", use(username, "username"));
}

void SqlStore::removeSessionsSeenBefore(std::int64_t time) {
    const long long before = time;
    run("DELETE FROM web_session WHERE seen_at < :before", use(before, "before"));
}

LoginAttempts SqlStore::loginAttempts(const std::string& username, const std::string& address) {
    LoginAttempts attempts;
    long long since = 0;
    soci::statement row = (m_sql->prepare << queries::AttemptsOf, into(since), into(attempts.count),
                           use(username, "username"), use(address, "address"));
    row.execute(true);
    attempts.since = since;
    return attempts;
}

void SqlStore::putLoginAttempts(const std::string& username, const std::string& address,
                                const LoginAttempts& attempts) {
    const long long since = attempts.since;
    run("INSERT INTO login_attempt (username, address, since, attempts) VALUES (:username, :address, :since, :count) "
        "ON CONFLICT (username, address) DO UPDATE SET since = excluded.since, attempts = excluded.attempts",
        use(username, "username"), use(address, "address"), use(since, "since"), use(attempts.count, "count"));
}

void SqlStore::removeLoginAttempts(const std::string& username, const std::string& address) {
    run("DELETE FROM login_attempt WHERE username = :username AND address = :address", use(username, "username"),
        use(address, "address"));
}

void SqlStore::removeLoginAttemptsBefore(std::int64_t time) {
    const long long before = time;
    run("DELETE FROM login_attempt WHERE since < :before", use(before, "before"));
}

}  // namespace disclosure
