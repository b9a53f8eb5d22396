#include "commands/DisclosureManage/ui/document/ConnectDocModel.h"

#include <algorithm>
#include <utility>

#include "commands/DisclosureManage/ui/Notice.h"
#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IKpxCurProjectMgr.h"
#include "sdk/packages/documents/IKpxDocOperMgr.h"

using BASECORE::FRAME::LookupManager;
using namespace BASECORE::NAMES;
using namespace DOCUMENTPACKAGE;

namespace {

constexpr int kGatherMills = 50;

int32_t currentProject() {
    const auto* projects = LookupManager<PROJECTPACKAGE::IKpxCurProjectMgr>(kCurrentProject);
    const auto* project = projects ? projects->GetCurProject() : nullptr;
    return project ? project->GetId() : 0;
}

}  // namespace

CConnectDocModel::CConnectDocModel(const DocumentLinks& docs, QObject* parent)
    : QObject(parent), m_first(this), m_gather(this), m_warning(this) {
    qRegisterMetaType<CFileModel*>();  // QML hands rows to the slots only when it knows the type
    prepareFilters();
    std::copy_if(docs.begin(), docs.end(), std::back_inserter(m_checked), IsOfStore);
    m_pages.push_back(currentPageSelection());

    // Real timers, which a wait holds back: nothing may come in the middle of a call.
    for (QTimer* timer : {&m_first, &m_gather, &m_warning})
        timer->setSingleShot(true);
    connect(&m_first, &QTimer::timeout, this, &CConnectDocModel::read);
    connect(&m_gather, &QTimer::timeout, this, &CConnectDocModel::runQuery);
    connect(&m_warning, &QTimer::timeout, this, [this] { WarnUser(m_warningText); });
    connect(&m_service, &ServiceState::back, this, [this] { m_first.start(0); });
    connect(this, &CConnectDocModel::currentPageSelectionChanged, this,
            &CConnectDocModel::onCurrentPageSelectionChanged);
    m_folderReading.begin(true);
    m_reading.begin(true);
    m_first.start(0);
}

IKpxDocFileListMgr* CConnectDocModel::fileList() {
    return LookupManager<IKpxDocFileListMgr>(kDocumentFileList);
}

QString CConnectDocModel::failureReason() const {
    return m_service.isLost() ? m_service.reason() : tr("没有得到应答");
}

void CConnectDocModel::read() {
    if (!m_areFoldersRead)
        readFolders();
    readFilters();
    if (m_reading.isFailed())
        refresh();
}

void CConnectDocModel::readFolders() {
    m_reading.reset();  // it follows the folders
    auto* manager = LookupManager<IKpxDocFolderMgr>(kDocumentFolders);
    if (!manager)
        return m_folderReading.findNone(tr("此程序没有资料库"), false);
    m_folderReading.begin(true);
    CFolderTreeModel::Folders folders;
    if (!manager->GetFolders(folders, currentProject()))
        return m_folderReading.fail(failureReason(), true);
    m_areFoldersRead = true;
    m_folders.setFolders(std::move(folders));
    onSearchTree();
}

void CConnectDocModel::onSearchTree() {
    if (!m_areFoldersRead)
        return;
    m_folders.search(m_searchTreeKey);
    const QString key = m_searchTreeKey.trimmed();
    if (m_folders.rowCount() > 0)
        m_folderReading.succeed();
    else
        m_folderReading.findNone(key.isEmpty() ? tr("没有目录") : tr("没有找到“%1”").arg(key), !key.isEmpty());
    emit folderTreeChanged();
    emit curTreeIndexChanged();
    emit defaultIndexChanged();
}

QModelIndex CConnectDocModel::defaultIndex() const {
    const QModelIndex known = m_folderId.isEmpty() ? QModelIndex() : m_folders.indexOfFolder(m_folderId);
    return known.isValid() ? known : m_folders.index(0, 0);
}

void CConnectDocModel::setCurTreeIndex(const QModelIndex& index) {
    if (m_current == index)
        return;
    m_current = index;
    emit curTreeIndexChanged();
    const CFolderTreeNode* folder = m_folders.folderOf(index);
    if (!folder)
        return;
    if (folder->folderId() == m_folderId) {
        if (m_isDue)
            refresh();
        return;
    }
    m_folderId = folder->folderId();
    if (m_users.reset())
        emit currentUserSelectionChanged();
    if (fileList())
        m_reading.begin(true);
    search();
}

void CConnectDocModel::onSearchDoc() {
    search();
}

void CConnectDocModel::setItemsPerPage(int items) {
    if (items < 1 || items == m_itemsPerPage)
        return;
    m_itemsPerPage = items;
    emit itemsPerPageChanged();
    search();
}

void CConnectDocModel::setCurrentPageSelection(const QString& page) {
    turnTo(page.toInt());
}

void CConnectDocModel::onCurrentPageSelectionChanged() {
    refresh();
}

void CConnectDocModel::onClickFirstPage() {
    turnTo(1);
}

void CConnectDocModel::onClickLastPage() {
    turnTo(totalPage());
}

void CConnectDocModel::onClickPrePage() {
    turnTo(m_pageNumber - 1);
}

void CConnectDocModel::onClickBackPage() {
    turnTo(m_pageNumber + 1);
}

void CConnectDocModel::turnTo(int page) {
    const int wanted = qBound(1, page, totalPage());
    if (wanted == m_pageNumber)
        return;
    m_pageNumber = wanted;
    emit currentPageSelectionChanged();
}

void CConnectDocModel::search() {
    turnTo(1);
    refresh();
}

void CConnectDocModel::refresh() {
    m_gather.start(kGatherMills);
}

void CConnectDocModel::runQuery() {
    auto* manager = fileList();
    if (!manager && !m_page)
        m_reading.findNone(tr("此程序没有资料库"), false);
    m_isDue = !m_folders.folderOf(m_current);
    if (!manager || m_isDue)
        return;
    if (!m_limit && isInverted()) {
        if (m_shownFolderId != m_folderId)  // whose documents would be taken for this one's
            m_reading.findNone(startsAfterEnd(), true);
        return warn(startsAfterEnd());
    }
    m_reading.begin(!m_page || m_reading.covers() || m_shownFolderId != m_folderId);
    std::vector<DocFileRecord> files;
    int32_t total = 0;
    if (!manager->PageFiles(files, total, query()))
        return m_reading.fail(failureReason(), true);  // what lies below is the answer to something else
    m_total = total;
    emit totalChanged();
    if (m_pageNumber > totalPage())
        return turnTo(totalPage());  // there were more
    showPage(files);
    if (!files.empty())
        m_reading.succeed();
    else
        m_reading.findNone(isFiltered() ? tr("没有符合条件的资料") : tr("此目录下没有资料"), isFiltered());
    if (!m_filterReading.isFailed())  // which the user has been told
        readFilters();                // the updaters of another folder
}

void CConnectDocModel::showPage(const std::vector<DocFileRecord>& files) {
    m_shownFolderId = m_folderId;
    auto* page = new MapFileModel(this);
    for (const DocFileRecord& file : files) {
        auto* row = new CFileModel(file, isChecked(file.id), page);
        connect(row, &CFileModel::selectedChanged, this, [this, row] { takeCheck(*row); });
        page->task_list()->append(row);
    }
    if (MapFileModel* old = std::exchange(m_page, page))
        old->deleteLater();
    while (m_pages.size() < totalPage())
        m_pages.push_back(QString::number(m_pages.size() + 1));
    while (m_pages.size() > totalPage())
        m_pages.pop_back();
    emit fileModelChanged();
    emit pageComboChanged();
    emit allSelectChanged();
}

bool CConnectDocModel::isChecked(const std::wstring& documentId) const {
    return std::any_of(m_checked.begin(), m_checked.end(), [&](const auto& doc) { return doc.refDocId == documentId; });
}

void CConnectDocModel::takeCheck(const CFileModel& row) {
    std::erase_if(m_checked, [&](const auto& doc) { return doc.refDocId == row.file().id; });
    if (row.selected())
        m_checked.push_back(LinkTo(row.file(), currentProject()));
    emit allSelectChanged();
}

void CConnectDocModel::onClickPreviewDoc(CFileModel* pDocModel) {
    auto* opener = LookupManager<IKpxDocOperMgr>(kDocumentOperations);
    if (!opener || !pDocModel)
        return;
    const DocFileRecord& file = pDocModel->file();
    opener->OpenDocument(file.uuid, file.md5, file.name, {});
}

void CConnectDocModel::onClickOk() {
    m_isAccepted = true;
}

void CConnectDocModel::onClickCancel() {
    m_isAccepted = false;
}
