#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace disclosure {

/// Why a rule refuses a request: what the client is told.
struct Reason {
    int code;
    const char* msg;
};

/// A refusal by a rule. Whatever the request has begun is undone.
class Refusal : public std::exception {
public:
    using Numbers = std::vector<std::pair<std::string, std::int64_t>>;

    explicit Refusal(const Reason& reason) : m_code(reason.code), m_msg(reason.msg) {}
    /// `which` tells one of several that the reason is about.
    Refusal(const Reason& reason, const std::string& which) : m_code(reason.code), m_msg(reason.msg + ("：" + which)) {}
    /// `numbers` are what a client may ask its user about.
    Refusal(const Reason& reason, const std::string& which, Numbers numbers) : Refusal(reason, which) {
        m_numbers = std::move(numbers);
    }
    int code() const { return m_code; }
    const std::string& msg() const { return m_msg; }
    const Numbers& numbers() const { return m_numbers; }
    const char* what() const noexcept override { return m_msg.c_str(); }

private:
    int m_code;
    std::string m_msg;
    Numbers m_numbers;
};

namespace reasons {

inline constexpr Reason NoRightCatalogs{403, "您没有编辑交底目录的权限"};
inline constexpr Reason NoRightTasks{403, "您没有编辑交底任务的权限"};
inline constexpr Reason NoRightMove{403, "您没有移动交底任务的权限"};
inline constexpr Reason NoRightDelete{403, "您没有删除交底任务的权限"};

inline constexpr Reason NoDepartment{404, "部门不存在"};
inline constexpr Reason NoCatalog{404, "目录不存在或已被删除"};
inline constexpr Reason NoParent{404, "上级目录不存在或已被删除"};

inline constexpr Reason NoTask{404, "任务不存在或已被删除"};
inline constexpr Reason NoPushConfig{404, "提醒设置不存在"};
inline constexpr Reason NotDiscloser{403, "只有该任务的交底人可以执行此操作"};
inline constexpr Reason NotReceiver{403, "您不是该任务的接受交底人"};

inline constexpr Reason TaskChanged{409, "任务已被他人修改，请核对后再保存"};
inline constexpr Reason TaskIdTaken{409, "任务编号已被使用"};
inline constexpr Reason TaskIdAmbiguous{409, "任务编号在多个部门中重复"};
inline constexpr Reason TaskPublished{409, "已发布的任务暂不支持编辑"};
inline constexpr Reason NotPublished{409, "任务尚未发布"};
inline constexpr Reason AlreadyDisclosed{409, "任务已交底，无需催办"};
inline constexpr Reason UrgedLately{409, "催办过于频繁，请10分钟后再试"};
inline constexpr Reason PushConfigExists{409, "部门的提醒设置已存在，请刷新后重试"};
inline constexpr Reason LogIdTaken{409, "操作记录编号已被使用"};
inline constexpr Reason TooManyEntries{409, "该任务的操作记录已达上限"};

inline constexpr Reason TaskNameEmpty{422, "任务名称不能为空"};
inline constexpr Reason TaskNameTooLong{422, "任务名称不能超过128个字符"};
inline constexpr Reason TaskNameForbidden{422, "任务名称不能包含控制字符"};
inline constexpr Reason RemarkTooLong{422, "备注不能超过300个字符"};
inline constexpr Reason RemarkForbidden{422, "备注不能包含控制字符"};
inline constexpr Reason BadTaskId{422, "任务编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"};
inline constexpr Reason BadElementId{422, "关联项编号无效"};
inline constexpr Reason ElementTwice{422, "关联项编号重复"};
inline constexpr Reason BadDate{422, "日期超出允许的范围"};
inline constexpr Reason EndsBeforeStart{422, "施工开始日期不得大于施工结束日期"};
inline constexpr Reason NoDiscloser{422, "请选择交底人"};
inline constexpr Reason NoReceiver{422, "请选择接受交底人"};
inline constexpr Reason UnknownDiscloser{422, "交底人不是本组织的人员"};
inline constexpr Reason UnknownReceiver{422, "接受交底人不是本组织的人员"};
inline constexpr Reason ReceiverTwice{422, "接受交底人重复"};
inline constexpr Reason TooManyReceivers{422, "接受交底人不能超过500人"};
inline constexpr Reason LinkTwice{422, "关联的模型重复"};
inline constexpr Reason DocTwice{422, "关联的资料重复"};
inline constexpr Reason TooManyLinks{422, "最多可关联10个视口或构件"};
inline constexpr Reason TooManyDocs{422, "最多可关联10份资料"};
inline constexpr Reason TooManyFiles{422, "最多可上传10个附件"};
inline constexpr Reason FieldTooLong{422, "关联项的内容过长或包含控制字符"};
inline constexpr Reason NothingChosen{422, "请选择要删除的任务"};
inline constexpr Reason TooManyChosen{422, "一次最多删除1000个任务"};
inline constexpr Reason BadDaysAdvance{422, "提前提醒的天数应为0到30天"};
inline constexpr Reason BadFrequency{422, "请选择提醒频率"};
inline constexpr Reason BadLogKind{422, "操作类型无效"};

inline constexpr Reason NotUploader{403, "只能撤回自己上传的文件"};
inline constexpr Reason NoFile{404, "文件不存在或已被删除"};
inline constexpr Reason FileInUse{409, "文件已被引用，不能删除"};
inline constexpr Reason QuotaUsed{409, "部门的文件存储空间已用完"};
inline constexpr Reason FileNameEmpty{422, "文件名不能为空"};
inline constexpr Reason FileNameTooLong{422, "文件名不能超过255个字符"};
inline constexpr Reason FileNameForbidden{422, "文件名不能包含路径和控制字符"};
inline constexpr Reason FileTypeUnknown{422, "文件格式不支持，请重新选择文件"};
inline constexpr Reason FileTooLarge{422, "请上传500M以内的文件"};
inline constexpr Reason FileExecutable{422, "不能上传可执行文件"};
inline constexpr Reason DocNotStored{422, "资料尚未上传或已失效，请重新上传"};

inline constexpr Reason NoRightDocuments{403, "您没有编辑资料的权限"};
inline constexpr Reason NoRightMoveDocuments{403, "您没有移动资料的权限"};
inline constexpr Reason NoRightDeleteDocuments{403, "您没有删除资料的权限"};
inline constexpr Reason NoDocument{404, "资料不存在或已被删除"};
inline constexpr Reason NoFolder{404, "文件夹不存在或已被删除"};
inline constexpr Reason FolderNameTaken{409, "同一文件夹下已有同名文件夹"};
inline constexpr Reason FolderIdTaken{409, "文件夹编号已被使用"};
inline constexpr Reason FolderNotEmpty{409, "文件夹不为空，不能删除"};
inline constexpr Reason FolderWithinItself{409, "不能将文件夹移动到其自身或下级文件夹中"};
inline constexpr Reason FoldersTooDeep{409, "文件夹层级不能超过32层"};
inline constexpr Reason TooManyFolders{409, "部门的文件夹数量已达上限"};
inline constexpr Reason TooManyContents{409, "该资料的历史版本已达上限"};
inline constexpr Reason TooManyTagsOfAll{409, "部门的标签数量已达上限"};
inline constexpr Reason DocumentsLinked{409, "资料已被交底任务关联"};
inline constexpr Reason FolderNameEmpty{422, "文件夹名称不能为空"};
inline constexpr Reason FolderNameTooLong{422, "文件夹名称不能超过128个字符"};
inline constexpr Reason FolderNameForbidden{422, "文件夹名称不能包含控制字符和\\/:*?\"<>|"};
inline constexpr Reason BadFolderId{422, "文件夹编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"};
inline constexpr Reason DocumentNameEmpty{422, "资料名称不能为空"};
inline constexpr Reason DocumentNameTooLong{422, "资料名称不能超过128个字符"};
inline constexpr Reason DocumentNameForbidden{422, "资料名称不能包含控制字符和\\/:*?\"<>|"};
inline constexpr Reason BadDocumentId{422, "资料编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"};
inline constexpr Reason OneNameForMany{422, "一次只能重命名一份资料"};
inline constexpr Reason NoDocumentChosen{422, "请选择资料"};
inline constexpr Reason TooManyDocumentsChosen{422, "一次最多操作500份资料"};
inline constexpr Reason TooManyTags{422, "一份资料最多10个标签"};
inline constexpr Reason BadTag{422, "标签应为1到32个字符，不能是all或none，也不能包含顿号和控制字符"};
inline constexpr Reason DocGone{422, "资料已被删除，不能关联"};
inline constexpr Reason DocUnknown{422, "资料库中没有该资料或该版本，请重新选择"};

inline constexpr Reason NameTaken{409, "同一目录下已有同名目录"};
inline constexpr Reason TopExists{409, "顶级目录已存在"};
inline constexpr Reason IdTaken{409, "目录编号已被使用"};
inline constexpr Reason IdGoing{409, "同编号的目录正在删除，请稍后重试"};
inline constexpr Reason IdAmbiguous{409, "目录编号在多个部门中重复"};
inline constexpr Reason HoldsTasks{409, "目录下有交底任务，不能删除"};
inline constexpr Reason AlreadyFirst{409, "目录已在最前，不能上移"};
inline constexpr Reason AlreadyLast{409, "目录已在最后，不能下移"};
inline constexpr Reason TopKeepsName{409, "顶级目录不能重命名"};
inline constexpr Reason TooDeep{409, "目录层级不能超过32层"};
inline constexpr Reason TooManyCatalogs{409, "部门的目录数量已达上限"};

inline constexpr Reason NameEmpty{422, "目录名称不能为空"};
inline constexpr Reason NameTooLong{422, "目录名称不能超过128个字符"};
inline constexpr Reason NameForbidden{422, "目录名称不能包含控制字符和\\/:*?\"<>|"};
inline constexpr Reason BadId{422, "目录编号只能由字母、数字、下划线和连字符组成，且不超过64个字符"};

}  // namespace reasons
}  // namespace disclosure
