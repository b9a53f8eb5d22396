#pragma once

#include <map>
#include <string>
#include <vector>

namespace EXCELOPERMAGERS::KPXExcelMgr {

/// Data of a report: named texts, and rows of nodes by the name of the template's table. A place of the template that
/// names something missing here is left empty.
struct ReportNode {
    std::map<std::wstring, std::wstring> values;
    std::map<std::wstring, std::vector<ReportNode>> tables;
};

}  // namespace EXCELOPERMAGERS::KPXExcelMgr
