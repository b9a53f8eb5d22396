#include "host/platform/SendFile.h"

namespace workbench {

Answer sendFile(PlatformClient& client, const std::wstring& deptId, const std::wstring& name,
                const Transfer& transfer) {
    const Answer answer = client.upload("/rs/platform/files", queryOf({{"deptId", deptId}, {"name", name}}), transfer);
    if (!answer.ok())
        return answer;
    const QJsonObject stored = answer.result.toObject();
    const QString uuid = stored["uuid"].toString();
    if (!uuid.isEmpty() && stored["md5"].toString() == answer.md5 &&
        stored["size"].toDouble(-1) == static_cast<double>(answer.size))
        return answer;
    if (!uuid.isEmpty())
        client.post("/rs/platform/files/delete", {{"deptId", QString::fromStdWString(deptId)}, {"uuid", uuid}});
    return client.failure(Outcome::BadFile, answer.status,
                          QCoreApplication::translate("workbench::SendFile", "文件校验失败，请重新上传"));
}

}  // namespace workbench
