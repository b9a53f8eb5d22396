#pragma once

#include "host/platform/DocumentStore.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/documents/IKpxDocTagMgr.h"

namespace workbench {

/// The tags of the service's documents as they are now.
class CDocTagMgr final : public BASECORE::FRAME::CMgrObject, public DOCUMENTPACKAGE::IKpxDocTagMgr {
public:
    explicit CDocTagMgr(DocumentStore& store);

    bool GetTags(std::vector<DOCUMENTPACKAGE::DocTagRecord>& tags) override;

private:
    DocumentStore& m_store;
};

}  // namespace workbench
