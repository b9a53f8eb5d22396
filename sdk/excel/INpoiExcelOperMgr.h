#pragma once

#include <string>

#include "sdk/Export.h"
#include "sdk/excel/ReportNode.h"

namespace EXCELOPERMAGERS::KPXExcelMgr {

/// Fills template workbooks. Registered as "KPX_EXCEL_OPER_MGR".
class HOSTSDK_API INpoiExcelOperMgr {
public:
    /// Writes `report` into a copy of the workbook `templateFile`, keeping its styles. False when it could not be
    /// written; an older `targetFile` then stays as it was, and `message` says why.
    virtual bool WriteReport(const std::wstring& templateFile, const std::wstring& targetFile, const ReportNode& report,
                             std::wstring& message) = 0;

protected:
    ~INpoiExcelOperMgr() = default;
};

}  // namespace EXCELOPERMAGERS::KPXExcelMgr
