#pragma once

#include <optional>
#include <vector>

#include "sdk/packages/IOrgDeptMgr.h"
#include "sdk/packages/IProjectDataMgr.h"

class QJsonValue;
class QString;

namespace workbench {

class PlatformClient;

/// Nothing when `value` is not a person.
std::optional<BASEPACKAGE::UserRecord> readUser(const QJsonValue& value);

/// The shared data that the service keeps for every workbench. An answer that is not of the agreed form counts as none.
class PlatformData {
public:
    explicit PlatformData(PlatformClient& client) : m_client(client) {}

    std::optional<std::vector<PROJECTPACKAGE::ProjectRecord>> projects();
    std::optional<std::vector<BASEPACKAGE::DeptRecord>> departments(const std::wstring& deptId);
    std::optional<std::vector<BASEPACKAGE::UserRecord>> users(const std::wstring& deptId);
    /// The keys of the rights that the current user holds in the department.
    std::optional<std::vector<std::wstring>> rights(const std::wstring& deptId);

private:
    template <class Record>
    std::optional<std::vector<Record>> list(const QString& path, const std::wstring* deptId,
                                            std::optional<Record> (*read)(const QJsonValue& value));

    PlatformClient& m_client;
};

}  // namespace workbench
