#pragma once

#include "host/platform/DocumentStore.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/documents/IKpxDocFileListMgr.h"

namespace workbench {

/// Lists the documents of the service as they are now.
class CDocFileListMgr final : public BASECORE::FRAME::CMgrObject, public DOCUMENTPACKAGE::IKpxDocFileListMgr {
public:
    explicit CDocFileListMgr(DocumentStore& store);

    bool GetUpdaters(std::vector<DOCUMENTPACKAGE::DocUpdaterRecord>& updaters, const std::wstring& folderId) override;
    bool PageFiles(std::vector<DOCUMENTPACKAGE::DocFileRecord>& files, int32_t& total,
                   const DOCUMENTPACKAGE::DocFileQuery& query) override;
    bool FindFiles(std::vector<DOCUMENTPACKAGE::DocFileRecord>& files, const std::vector<std::wstring>& ids,
                   const std::wstring& deptId) override;

private:
    DocumentStore& m_store;
};

}  // namespace workbench
