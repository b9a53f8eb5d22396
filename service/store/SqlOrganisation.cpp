#include "service/store/Queries.h"
#include "service/store/SqlStore.h"

namespace disclosure {

using soci::into;
using soci::use;

std::optional<Department> SqlStore::department(const std::string& deptId) {
    Department d;
    d.id = deptId;
    soci::statement row =
        (m_sql->prepare << queries::DepartmentById, into(d.name), into(d.parentId), use(deptId, "dept"));
    if (!row.execute(true))
        return std::nullopt;
    return d;
}

std::vector<Department> SqlStore::departmentsFrom(const std::string& deptId) {
    std::vector<Department> found;
    Department d;
    soci::statement rows =
        (m_sql->prepare << queries::DepartmentsFrom, into(d.id), into(d.name), into(d.parentId), use(deptId, "dept"));
    rows.execute();
    while (rows.fetch())
        found.push_back(d);
    return found;
}

std::vector<Person> SqlStore::peopleFrom(const std::string& deptId) {
    std::vector<Person> found;
    Person p;
    soci::statement rows = (m_sql->prepare << queries::PeopleFrom, into(p.username), into(p.realname), into(p.headUuid),
                            into(p.deptId), use(deptId, "dept"));
    rows.execute();
    while (rows.fetch())
        found.push_back(p);
    return found;
}

std::vector<Project> SqlStore::projectsOf(const std::string& username) {
    std::vector<Project> found;
    Project p;
    soci::statement rows =
        (m_sql->prepare << queries::ProjectsOf, into(p.ppid), into(p.name), into(p.deptId), use(username, "username"));
    rows.execute();
    while (rows.fetch())
        found.push_back(p);
    return found;
}

std::optional<Rights> SqlStore::rightsOf(const std::string& username, const std::string& deptId) {
    std::string key;
    soci::statement rows =
        (m_sql->prepare << queries::RightsOf, into(key), use(deptId, "dept"), use(username, "username"));
    rows.execute();
    std::optional<Rights> rights;
    while (rows.fetch()) {
        if (!rights)
            rights.emplace();
        if (const auto right = rightOf(key))
            rights->insert(*right);
    }
    return rights;
}

void SqlStore::putDepartment(const Department& d) {
    run("INSERT INTO department (dept_id, dept_name, parent_id) VALUES (:dept, :name, NULLIF(:parent, '')) "
        "ON CONFLICT (dept_id) DO UPDATE SET dept_name = excluded.dept_name, parent_id = excluded.parent_id",
        use(d.id, "dept"), use(d.name, "name"), use(d.parentId, "parent"));
}

void SqlStore::putProject(const Project& p) {
    run("INSERT INTO project (dept_id, ppid, name) VALUES (:dept, :ppid, :name) "
        "ON CONFLICT (dept_id, ppid) DO UPDATE SET name = excluded.name",
        use(p.deptId, "dept"), use(p.ppid, "ppid"), use(p.name, "name"));
}

void SqlStore::putMember(const std::string& deptId, const std::string& username) {
    run("INSERT INTO member (dept_id, username) VALUES (:dept, :username) ON CONFLICT DO NOTHING", use(deptId, "dept"),
        use(username, "username"));
}

void SqlStore::putRights(const std::string& deptId, const std::string& username, const Rights& rights) {
    run("DELETE FROM granted WHERE dept_id = :dept AND username = :username", use(deptId, "dept"),
        use(username, "username"));
    for (const Right right : rights) {
        const std::string key(keyOf(right));
        run("INSERT INTO granted (dept_id, username, right_key) VALUES (:dept, :username, :key)", use(deptId, "dept"),
            use(username, "username"), use(key, "key"));
    }
}

}  // namespace disclosure
