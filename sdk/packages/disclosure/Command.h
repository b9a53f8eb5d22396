#pragma once

/// The command that opens the disclosure window, as a host runs it.
namespace DISCLOSUREPACKAGE {

inline constexpr wchar_t kCommandName[] = L"APP_DisclosureMgr_Cmd";
/// Parameter of the command, a std::wstring: the id of a task of the current project, which the window then shows. It
/// counts for one run.
inline constexpr wchar_t kParamTaskId[] = L"taskId";

}  // namespace DISCLOSUREPACKAGE
