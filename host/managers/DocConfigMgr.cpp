#include "host/managers/DocConfigMgr.h"

#include <algorithm>

#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/LastFailure.h"

namespace workbench {

CDocConfigMgr::CDocConfigMgr(DocumentStore& store) : CMgrObject(BASECORE::NAMES::kDocumentConfig), m_store(store) {}

const std::vector<DocumentType>* CDocConfigMgr::types() {
    return m_types.get({}, [this] {
        QString why;
        auto types = m_store.types(why);
        if (!types)
            DISCLOSUREPACKAGE::SetLastFailure(why.toStdWString());
        return types;
    });
}

bool CDocConfigMgr::GetFileTypes(std::vector<std::wstring>& names) {
    const auto* known = types();
    if (!known)
        return false;
    names = {everyType()};
    for (const DocumentType& type : *known)
        names.push_back(type.name.toStdWString());
    return true;
}

bool CDocConfigMgr::GetExtensions(std::vector<std::wstring>& extensions, const std::wstring& fileType) {
    if (fileType == everyType()) {
        extensions.clear();
        return true;
    }
    const auto* known = types();
    if (!known)
        return false;
    const auto found = std::find_if(known->begin(), known->end(),
                                    [&](const DocumentType& type) { return type.name.toStdWString() == fileType; });
    if (found == known->end())
        return false;
    extensions.clear();
    for (const QString& extension : found->extensions)
        extensions.push_back(extension.toStdWString());
    return true;
}

}  // namespace workbench
