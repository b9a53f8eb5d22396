#include "commands/DisclosureManage/ui/task/TaskDocuments.h"

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Notice.h"
#include "commands/DisclosureManage/ui/document/ConnectDocWnd.h"
#include "commands/DisclosureManage/ui/task/TaskRules.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/disclosure/DocumentLimits.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"
#include "sdk/packages/documents/IKpxDocOperMgr.h"
#include "ui/common/WideText.h"

using BASECORE::FRAME::LookupManager;
using DISCLOSUREPACKAGE::TaskDocRecord;
using DISCLOSUREPACKAGE::UploadedFileRecord;
using DOCUMENTPACKAGE::DocFileRecord;

CTaskDocuments::CTaskDocuments(DISCLOSUREPACKAGE::TaskRecord& task, QObject* parent) : QObject(parent), m_task(task) {
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &CTaskDocuments::look);
    m_look.start(0);
}

QStringList CTaskDocuments::forEach(const std::function<QString(const TaskDocRecord&)>& text) const {
    QStringList texts;
    for (const TaskDocRecord& doc : m_task.disclosureTaskDocList)
        texts.append(text(doc));
    return texts;
}

QStringList CTaskDocuments::names() const {
    return forEach([this](const TaskDocRecord& doc) {
        const QString name = FromWide(doc.name);
        switch (fateOf(doc)) {
            case Fate::Deleted:
                return tr("%1（已删除）").arg(name);
            case Fate::Newer:
                return tr("%1（有新版本）").arg(name);
            default:
                return name;
        }
    });
}

QStringList CTaskDocuments::notes() const {
    return forEach([this](const TaskDocRecord& doc) {
        return fateOf(doc) == Fate::Newer
                   ? tr("关联的是较早的版本。要改用新版本，请在“关联资料库”中取消勾选该资料，再重新勾选")
                   : QString();
    });
}

QString CTaskDocuments::hint() {
    QStringList extensions;
    for (const wchar_t* extension : DISCLOSUREPACKAGE::kDocumentExtensions)
        extensions << QString::fromWCharArray(extension);
    return tr("最多%1份，每份不超过%2M；支持%3")
        .arg(DISCLOSUREPACKAGE::kMostDocuments)
        .arg(DISCLOSUREPACKAGE::kMostDocumentMiB)
        .arg(extensions.join(QStringLiteral("、")));
}

CTaskDocuments::Fate CTaskDocuments::fateOf(const TaskDocRecord& doc) const {
    const auto stored = IsOfStore(doc) ? m_stored.find(doc.refDocId) : m_stored.end();
    if (stored == m_stored.end())
        return Fate::Same;  // as far as is known
    if (stored->second.isDeleted)
        return Fate::Deleted;
    return MeansContent(doc, stored->second) ? Fate::Same : Fate::Newer;
}

void CTaskDocuments::look() {
    std::vector<std::wstring> ids;
    for (const TaskDocRecord& doc : m_task.disclosureTaskDocList)
        if (IsOfStore(doc))
            ids.push_back(doc.refDocId);
    auto* manager = LookupManager<DOCUMENTPACKAGE::IKpxDocFileListMgr>(BASECORE::NAMES::kDocumentFileList);
    std::vector<DocFileRecord> files;
    if (ids.empty() || !manager || !manager->FindFiles(files, ids, m_task.deptId))
        return;
    m_stored.clear();
    for (const std::wstring& id : ids)
        m_stored[id].isDeleted = true;
    for (const DocFileRecord& file : files)
        m_stored[file.id] = file;
    emit changed();
}

void CTaskDocuments::connectStore() {
    if (!CConnectDocWnd::choose(m_task.disclosureTaskDocList))
        return;
    renew();
}

void CTaskDocuments::renew() {
    emit changed();
    m_look.start(0);
}

void CTaskDocuments::upload() {
    if (m_task.disclosureTaskDocList.size() >= DISCLOSUREPACKAGE::kMostDocuments) {
        ShowNotice(TooManyDocuments());
        return;
    }
    std::vector<UploadedFileRecord> files;
    auto* manager = FindDisclosureManager();
    if (!manager || !manager->UploadLocalFiles(files))
        return;
    for (const UploadedFileRecord& file : files)
        m_task.disclosureTaskDocList.push_back(LinkTo(file));
    emit changed();
}

void CTaskDocuments::view(int index) const {
    auto* opener = LookupManager<DOCUMENTPACKAGE::IKpxDocOperMgr>(BASECORE::NAMES::kDocumentOperations);
    if (!opener || index < 0 || index >= static_cast<int>(m_task.disclosureTaskDocList.size()))
        return;
    const TaskDocRecord& doc = m_task.disclosureTaskDocList[static_cast<std::size_t>(index)];
    opener->OpenDocument(doc.uuid, doc.md5, doc.name, m_task.deptId);
}

void CTaskDocuments::remove(int index) {
    auto& docs = m_task.disclosureTaskDocList;
    if (index < 0 || index >= static_cast<int>(docs.size()))
        return;
    docs.erase(docs.begin() + index);
    emit changed();
}
