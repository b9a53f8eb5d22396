#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<Department> SqlStore::department(const std::string& deptId) {
    Department d;
    d.id = deptId;
    if (!m_statements.one(queries::DepartmentById, into(d.name), into(d.parentId), use(deptId, "dept")))
        return std::nullopt;
    return d;
}

bool SqlStore::hasDepartments() {
    return readNumber("SELECT COUNT(*) FROM (SELECT 1 FROM department LIMIT 1) found") > 0;
}

std::vector<Department> SqlStore::departmentsFrom(const std::string& deptId) {
    Department d;
    return m_statements.list(queries::DepartmentsFrom, d, into(d.id), into(d.name), into(d.parentId),
                             use(deptId, "dept"));
}

std::vector<Person> SqlStore::peopleFrom(const std::string& deptId) {
    Person p;
    return m_statements.list(queries::PeopleFrom, p, into(p.username), into(p.realname), into(p.headUuid),
                             into(p.deptId), use(deptId, "dept"));
}

std::vector<Project> SqlStore::projectsOf(const std::string& username) {
    Project p;
    return m_statements.list(queries::ProjectsOf, p, into(p.ppid), into(p.name), into(p.deptId),
                             use(username, "username"));
}

std::optional<Rights> SqlStore::rightsOf(const std::string& username, const std::string& deptId) {
    std::optional<Rights> rights;
    std::string key;
    m_statements.each(
        queries::RightsOf,
        [&] {
            if (!rights)
                rights.emplace();
            if (const auto right = rightOf(key))
                rights->insert(*right);
        },
        into(key), use(deptId, "dept"), use(username, "username"));
    return rights;
}

void SqlStore::putDepartment(const Department& d) {
    m_statements.run(
        "INSERT INTO department (dept_id, dept_name, parent_id) VALUES (:dept, :name, NULLIF(:parent, '')) "
        "ON CONFLICT (dept_id) DO UPDATE SET dept_name = excluded.dept_name, parent_id = excluded.parent_id",
        use(d.id, "dept"), use(d.name, "name"), use(d.parentId, "parent"));
}

void SqlStore::putProject(const Project& p) {
    m_statements.run(
        "INSERT INTO project (dept_id, ppid, name) VALUES (:dept, :ppid, :name) "
        "ON CONFLICT (dept_id, ppid) DO UPDATE SET name = excluded.name",
        use(p.deptId, "dept"), use(p.ppid, "ppid"), use(p.name, "name"));
}

void SqlStore::putMember(const std::string& deptId, const std::string& username) {
    m_statements.run("INSERT INTO member (dept_id, username) VALUES (:dept, :username) ON CONFLICT DO NOTHING",
                     use(deptId, "dept"), use(username, "username"));
}

bool SqlStore::removeMember(const std::string& deptId, const std::string& username) {
    return m_statements.run("DELETE FROM member WHERE dept_id = :dept AND username = :username", use(deptId, "dept"),
                            use(username, "username")) > 0;
}

void SqlStore::putRights(const std::string& deptId, const std::string& username, const Rights& rights) {
    m_statements.run("DELETE FROM granted WHERE dept_id = :dept AND username = :username", use(deptId, "dept"),
                     use(username, "username"));
    for (const Right right : rights) {
        const std::string key(keyOf(right));
        m_statements.run("INSERT INTO granted (dept_id, username, right_key) VALUES (:dept, :username, :key)",
                         use(deptId, "dept"), use(username, "username"), use(key, "key"));
    }
}

}  // namespace disclosure
