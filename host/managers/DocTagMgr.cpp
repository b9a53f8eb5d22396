#include "host/managers/DocTagMgr.h"

#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace workbench {

CDocTagMgr::CDocTagMgr(DocumentStore& store) : CMgrObject(BASECORE::NAMES::kDocumentTags), m_store(store) {}

bool CDocTagMgr::GetTags(std::vector<DOCUMENTPACKAGE::DocTagRecord>& tags) {
    QString why;
    const auto known = m_store.tags(why);
    if (!known) {
        DISCLOSUREPACKAGE::SetLastFailure(why.toStdWString());
        return false;
    }
    tags.clear();
    for (const DocumentLabel& tag : *known)
        tags.push_back({tag.id.toStdWString(), tag.name.toStdWString()});
    return true;
}

}  // namespace workbench
