#pragma once

#include <string>
#include <vector>

#include "service/commands/Settings.h"
#include "service/domain/LoadData.h"
#include "service/ports/IStore.h"

/// What each subcommand does; each returns the exit code, and throws with a reason for the user when it cannot be done.
namespace disclosure::commands {

int serve(const Settings& settings);
int migrate(const Settings& settings);
int seedDemonstration(const Settings& settings);
int seedLoadDepartment(const Settings& settings, const LoadSettings& load);
int seedOrganisation(const Settings& settings, const std::string& file);

/// The new person is a member of the department.
int addUser(const Settings& settings, const Person& person);
/// Ends the person's sessions as well.
int changePassword(const Settings& settings, const std::string& username);
/// Reminders are mailed there; an empty address ends that.
int setMail(const Settings& settings, const std::string& username, const std::string& address);
/// Makes them a member if need be, with exactly the rights of these keys ("all" for every one).
int grant(const Settings& settings, const std::string& username, const std::string& deptId,
          const std::vector<std::string>& keys);
/// Ends the membership with its rights.
int leave(const Settings& settings, const std::string& username, const std::string& deptId);
/// A person who is not active cannot log in, has lost every session and is not offered for anything new.
int setActive(const Settings& settings, const std::string& username, bool active);
int listUsers(const Settings& settings);

}  // namespace disclosure::commands
