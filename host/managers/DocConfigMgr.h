#pragma once

#include "host/platform/Cached.h"
#include "host/platform/DocumentStore.h"
#include "sdk/basecore/MgrObject.h"
#include "sdk/packages/documents/IKpxDocConfigMgr.h"

namespace workbench {

/// The service's classification behind "全部", which is every file; read once.
class CDocConfigMgr final : public BASECORE::FRAME::CMgrObject, public DOCUMENTPACKAGE::IKpxDocConfigMgr {
    Q_DECLARE_TR_FUNCTIONS(CDocConfigMgr)

public:
    explicit CDocConfigMgr(DocumentStore& store);

    bool GetFileTypes(std::vector<std::wstring>& names) override;
    bool GetExtensions(std::vector<std::wstring>& extensions, const std::wstring& fileType) override;

    /// The type that is every file.
    static std::wstring everyType() { return tr("全部").toStdWString(); }
    void forget() { m_types.forget(); }

private:
    const std::vector<DocumentType>* types();

    DocumentStore& m_store;
    Cached<std::vector<DocumentType>> m_types;
};

}  // namespace workbench
