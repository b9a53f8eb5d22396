#pragma once

#include <string>
#include <vector>

#include "sdk/Export.h"

namespace DOCUMENTPACKAGE {

/// A tag of documents.
struct DocTagRecord {
    std::wstring id;
    std::wstring name;
};

/// The tags of documents. Registered as "KPX_DOCTAG_MGR".
class HOSTSDK_API IKpxDocTagMgr {
public:
    virtual bool GetTags(std::vector<DocTagRecord>& tags) = 0;

protected:
    ~IKpxDocTagMgr() = default;
};

}  // namespace DOCUMENTPACKAGE
