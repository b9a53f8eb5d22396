#pragma once

/// The names under which the host's managers are registered, and the keys of its services.
namespace BASECORE::NAMES {

inline constexpr wchar_t kDisclosure[] = L"APP_DISCLOSURE_MGR";
inline constexpr wchar_t kCurrentProject[] = L"KpxCurProjectMgr";
inline constexpr wchar_t kDepartments[] = L"KpxOrgDeptMgr";
inline constexpr wchar_t kRights[] = L"KpxAuthMgr";
inline constexpr wchar_t kAuthentication[] = L"CENTRALAUTHENTICATIONSERVICE_MGR ";  // the blank belongs to the name
inline constexpr wchar_t kRestService[] = L"APP_RESTSERV_MGR";
inline constexpr wchar_t kServiceState[] = L"APP_SERVICESTATE_MGR";
inline constexpr wchar_t kWebService[] = L"AppWebServiceMgr";
inline constexpr wchar_t kFileUpload[] = L"KpxFileUploadMgr";
inline constexpr wchar_t kFileDownload[] = L"KpxFileDownloadMgr";
inline constexpr wchar_t kPaths[] = L"KpxPathMgr";
inline constexpr wchar_t kViewports[] = L"KpxViewPortMgr";
inline constexpr wchar_t kRebarNodes[] = L"APP_TARVONODE_MGR";
inline constexpr wchar_t kExcel[] = L"KPX_EXCEL_OPER_MGR";
inline constexpr wchar_t kFunctionLog[] = L"AppFunctionLogMgr";
inline constexpr wchar_t kDocumentOperations[] = L"KPX_DOCOPER_MGR";
inline constexpr wchar_t kDocumentConfig[] = L"KPX_DOCCONFIG_MGR";
inline constexpr wchar_t kDocumentFileList[] = L"KPX_DOCFILELIST_MGR";
inline constexpr wchar_t kDocumentFolders[] = L"KPX_DOCFOLDER_MGR";
inline constexpr wchar_t kDocumentTags[] = L"KPX_DOCTAG_MGR";
inline constexpr wchar_t kProjectData[] = L"KpxProjectDataMgr";
inline constexpr wchar_t kClientConfig[] = L"KpxClientConfigMgr";
inline constexpr wchar_t kDisplayControl[] = L"KpxDisplayControlUIMgr";
inline constexpr wchar_t kHoopsBase[] = L"AppHoopsBaseMgr";
inline constexpr wchar_t kHoopsControl[] = L"AppHoopsCtrlMgr";

/// The key under which the host knows the disclosure service.
inline constexpr wchar_t kServiceKey[] = L"BuilderCommonBusinessdata";

}  // namespace BASECORE::NAMES
