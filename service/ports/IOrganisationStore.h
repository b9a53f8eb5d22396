#pragma once

#include <optional>
#include <string>
#include <vector>

#include "service/ports/Records.h"
#include "service/ports/Rights.h"

namespace disclosure {

/// Departments, their projects, their members and what these may do.
class IOrganisationStore {
public:
    virtual std::optional<Department> department(const std::string& deptId) = 0;
    virtual bool hasDepartments() = 0;
    /// The department and everything below it, parents first.
    virtual std::vector<Department> departmentsFrom(const std::string& deptId) = 0;
    /// The active members of the department and of everything below it, each once, by login name.
    virtual std::vector<Person> peopleFrom(const std::string& deptId) = 0;
    /// The projects of every department the person is a member of, by number.
    virtual std::vector<Project> projectsOf(const std::string& username) = 0;
    /// The person's rights in the department; nothing when not a member of it or of one above it.
    virtual std::optional<Rights> rightsOf(const std::string& username, const std::string& deptId) = 0;

    /// The departments that the person may see, and the people in them, each once.
    virtual std::vector<Department> departmentsOf(const std::string& username) = 0;
    virtual std::vector<Person> colleaguesOf(const std::string& username) = 0;
    /// Those of the people who are not active members of the same organisation as the department.
    virtual std::vector<std::string> strangers(const std::vector<std::string>& usernames,
                                               const std::string& deptId) = 0;

    virtual void putDepartment(const Department& department) = 0;
    virtual void putProject(const Project& project) = 0;
    virtual void putMember(const std::string& deptId, const std::string& username) = 0;
    /// Takes the rights in the department, too. Returns whether the person was a member of it.
    virtual bool removeMember(const std::string& deptId, const std::string& username) = 0;
    /// Makes the member's rights in the department exactly these.
    virtual void putRights(const std::string& deptId, const std::string& username, const Rights& rights) = 0;

protected:
    ~IOrganisationStore() = default;
};

}  // namespace disclosure
