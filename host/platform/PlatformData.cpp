#include "host/platform/PlatformData.h"

#include "host/log/Messages.h"
#include "host/platform/PlatformClient.h"
#include "host/platform/Reader.h"

namespace workbench {
namespace {

using BASEPACKAGE::DeptRecord;
using BASEPACKAGE::UserRecord;
using PROJECTPACKAGE::ProjectRecord;

std::optional<ProjectRecord> readProject(const QJsonValue& value) {
    Reader reader(value);
    ProjectRecord project;
    project.ppid = reader.number("ppid");
    project.projId = reader.optionalText("projId");
    project.projName = reader.text("name");
    project.deptId = reader.text("deptId");
    project.classify = reader.optionalNumber("classify");
    project.projModel = reader.optionalNumber("projModel");
    project.projType = reader.optionalNumber("projType");
    return reader.result(std::move(project));
}

std::optional<DeptRecord> readDepartment(const QJsonValue& value) {
    Reader reader(value);
    DeptRecord department;
    department.id = reader.text("deptId");
    department.name = reader.text("deptName");
    department.parentId = reader.optionalText("parentId");
    return reader.result(std::move(department));
}

std::optional<std::wstring> readText(const QJsonValue& value) {
    return value.isString() ? std::optional(value.toString().toStdWString()) : std::nullopt;
}

}  // namespace

std::optional<UserRecord> readUser(const QJsonValue& value) {
    Reader reader(value);
    UserRecord user;
    user.userName = reader.text("username");
    user.realName = reader.text("realname");
    user.headUuid = reader.optionalText("userHeadUuid");
    user.deptId = reader.text("deptId");
    return reader.result(std::move(user));
}

template <class Record>
std::optional<std::vector<Record>> PlatformData::list(const QString& path, const std::wstring* deptId,
                                                      std::optional<Record> (*read)(const QJsonValue& value)) {
    Answer answer = m_client.get(path, deptId ? queryOf({{"deptId", *deptId}}) : QUrlQuery());
    auto records = answer.ok() ? readList(answer.result, read) : std::nullopt;
    if (answer.ok() && !records)
        answer = m_client.failure(Outcome::Malformed, answer.status);
    if (!answer.ok())
        qCWarning(messages).noquote() << path << answer.text;
    return records;
}

std::optional<std::vector<ProjectRecord>> PlatformData::projects() {
    return list<ProjectRecord>("/rs/platform/projects", nullptr, readProject);
}

std::optional<std::vector<DeptRecord>> PlatformData::departments(const std::wstring& deptId) {
    return list<DeptRecord>("/rs/platform/departments", &deptId, readDepartment);
}

std::optional<std::vector<UserRecord>> PlatformData::users(const std::wstring& deptId) {
    return list<UserRecord>("/rs/platform/users", &deptId, readUser);
}

std::optional<std::vector<std::wstring>> PlatformData::rights(const std::wstring& deptId) {
    return list<std::wstring>("/rs/platform/rights", &deptId, readText);
}

}  // namespace workbench
