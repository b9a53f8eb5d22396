#include "commands/DisclosureManage/ui/task/CatalogEditor.h"

#include <algorithm>
#include <optional>

#include <QScopedValueRollback>

#include "commands/DisclosureManage/ui/CallReport.h"
#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/Processing.h"
#include "commands/DisclosureManage/ui/Rights.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeModel.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/basetools/FileNameCheck.h"
#include "sdk/basetools/Uuid.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/packages/disclosure/IDisclosureManageMgr.h"

using DISCLOSUREPACKAGE::CatalogRecord;
using DISCLOSUREPACKAGE::IDisclosureManageMgr;

namespace {

constexpr wchar_t kTopCatalog[] = L"全部";
constexpr wchar_t kFirstCatalog[] = L"技术交底";
constexpr int kLongestName = 128;
constexpr int32_t kUp = 0;
constexpr int32_t kDown = 1;

/// Fills `catalogs`, creating what a department must have.
bool ReadCatalogs(IDisclosureManageMgr& manager, std::vector<CatalogRecord>& catalogs, bool firstLoad) {
    if (!manager.ListCatalogs(catalogs, {}))
        return false;
    if (!catalogs.empty())
        return true;

    CatalogRecord top;
    top.name = kTopCatalog;
    // The service gives the id, which only the list tells.
    if (!manager.SaveCatalog(top) || !manager.ListCatalogs(catalogs, {}) || catalogs.empty())
        return false;
    if (!firstLoad)
        return true;

    CatalogRecord first;
    first.id = BASETOOLS::GenerateUUID();
    first.name = kFirstCatalog;
    first.parentId = catalogs.front().id;
    if (!manager.SaveCatalog(first))
        return false;
    catalogs.push_back(first);
    return true;
}

}  // namespace

CCatalogEditor::CCatalogEditor(CatalogTreeModel& model, QWidget* messageOwner)
    : m_model(model), m_messageOwner(messageOwner) {}

bool CCatalogEditor::load(bool firstLoad) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return false;
    std::vector<CatalogRecord> catalogs;
    m_model.reading()->begin(m_model.rowCount() == 0);
    DISCLOSUREPACKAGE::SetLastFailure({});
    if (!ReadCatalogs(*manager, catalogs, firstLoad)) {
        m_model.reading()->fail(FailureReason(), m_model.rowCount() == 0);
        return false;
    }
    m_model.reading()->succeed();
    m_model.setEditAuth(HoldsRight(BASETOOLS::CAuthCodeTool::kEditTasks));
    m_model.setCatalogs(catalogs);
    return true;
}

QString CCatalogEditor::nextFolderName() const {
    const QString base = tr("新建文件夹");
    const CatalogTreeNode* current = m_model.GetCurrentNode();
    if (!current)
        return base;

    std::optional<qint64> largest;
    for (const TreeNode* sibling : current->parentNode()->children()) {
        const QString name = static_cast<const CatalogTreeNode*>(sibling)->nodeName();
        if (!name.startsWith(base))
            continue;
        bool isNumber = true;
        const int number = name == base ? 0 : name.mid(base.size()).toInt(&isNumber);
        if (isNumber)
            largest = std::max(largest.value_or(number), qint64{number});
    }
    return largest ? base + QString::number(*largest + 1) : base;
}

void CCatalogEditor::create(const QString& name) {
    m_model.setDuplicateStatus(false);
    m_model.setFailure({});
    IDisclosureManageMgr* manager = FindDisclosureManager();
    const QPersistentModelIndex parentIndex = m_model.currentIndex();
    if (!manager || !parentIndex.isValid())
        return;

    CatalogRecord record;
    record.id = BASETOOLS::GenerateUUID();
    record.name = name.toStdWString();
    record.parentId = m_model.GetCurrentNode()->id().toStdWString();
    DISCLOSUREPACKAGE::SetLastFailure({});
    if (!manager->SaveCatalog(record))
        return m_model.setFailure(UntoldFailure());

    m_model.setDuplicateStatus(true);
    auto* node =
        new CatalogTreeNode(name, QString::fromStdWString(record.id), QString::fromStdWString(record.parentId));
    m_model.appendNode(parentIndex, node);
    m_model.expand(parentIndex);
    node->setNodeReadOnly(true);
    manager->WriteFunctionLog(L"新建交底目录", L"技术→交底管理→新建目录");
}

void CCatalogEditor::rename(const QString& name) {
    m_model.setDuplicateStatus(false);
    m_model.setFailure({});
    CatalogTreeNode* node = m_model.GetCurrentNode();
    if (node)
        node->setNodeName(renameCatalog(*node, name) ? name : node->nodeName());
}

bool CCatalogEditor::renameCatalog(const CatalogTreeNode& node, const QString& name) {
    if (node.parentId().isEmpty() || !checkName(name))
        return false;
    IDisclosureManageMgr* manager = FindDisclosureManager();
    if (!manager)
        return false;

    CatalogRecord record;
    record.id = node.id().toStdWString();
    record.name = name.toStdWString();
    record.parentId = node.parentId().toStdWString();
    DISCLOSUREPACKAGE::SetLastFailure({});
    if (!manager->UpdateCatalog(record)) {
        m_model.setFailure(UntoldFailure());
        return false;
    }
    m_model.setDuplicateStatus(true);
    manager->WriteFunctionLog(L"修改交底目录", L"技术→交底管理→修改目录");
    return true;
}

bool CCatalogEditor::checkName(const QString& name) const {
    const auto refuse = [this](const QString& message) {
        BASEUI::ShowMessageBox(message.toStdWString(), m_messageOwner);
        return false;
    };
    if (name.trimmed().isEmpty())
        return refuse(tr("文件夹名称不能为空"));
    if (BASETOOLS::CFileNameCheck::HasForbiddenCharacter(name.toStdWString()))
        return refuse(tr("文件夹名称不能包含\\/:*?\"<>|"));
    if (name.size() > kLongestName)
        return refuse(tr("文件夹名称长度需1-50之间"));
    if (name == QString::fromWCharArray(kTopCatalog))
        return refuse(tr("全部是一个特殊的字段名"));
    return true;
}

void CCatalogEditor::remove() {
    const CatalogTreeNode* node = m_model.GetCurrentNode();
    if (!node || !confirmsRemoval(*node))
        return;
    bool isDone = true;
    {
        const Processing progress;
        if (progress)
            isDone = removeCurrent();
    }
    if (!isDone)
        SayFailure(tr("删除目录"));
}

bool CCatalogEditor::confirmsRemoval(const CatalogTreeNode& node) {
    const QScopedValueRollback<bool> asking(m_isAsking, true);
    const QString question = tr("删除后，此目录下的交底任务无法恢复，是否确定删除？");
    int catalogs = 0;
    for (QList<TreeNode*> pending = node.children(); !pending.isEmpty(); ++catalogs)
        pending.append(pending.takeLast()->children());
    QString details = tr("目录“%1”：%2个下级目录，%3个任务").arg(node.nodeName()).arg(catalogs).arg(node.total());
    QString name;
    if (IDisclosureManageMgr* manager = FindDisclosureManager(); manager && node.parentId().isEmpty()) {
        // With the top goes everything that the department has.
        name = QString::fromStdWString(manager->GetCurDeptName());
        name = name.trimmed().isEmpty() ? node.nodeName() : name;
        details += tr("\n将清空整个部门，请输入“%1”以确认").arg(name);
    }
    return BASEUI::AskBeforeLoss(question.toStdWString(), details.toStdWString(), m_messageOwner,
                                 name.toStdWString()) != BASEUI::MessageResult::Cancel;
}

bool CCatalogEditor::removeCurrent() {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    const CatalogTreeNode* node = m_model.GetCurrentNode();
    DISCLOSUREPACKAGE::SetLastFailure({});
    if (!manager || !node || !manager->DeleteCatalog(node->id().toStdWString()))
        return false;

    const bool isTop = node->parentId().isEmpty();
    const QPersistentModelIndex removed = m_model.currentIndex();
    // What is selected next: the catalog that takes the place, or the one before, or the one above.
    QModelIndex next = removed.sibling(removed.row() + 1, 0);
    if (!next.isValid())
        next = removed.row() > 0 ? removed.sibling(removed.row() - 1, 0) : removed.parent();
    m_model.setCurrentIndex(next);
    m_model.removeNode(removed);
    if (isTop)
        load(false);
    else
        manager->WriteFunctionLog(L"删除交底目录", L"技术→交底管理→删除目录");
    return true;
}

void CCatalogEditor::move(int places) {
    IDisclosureManageMgr* manager = FindDisclosureManager();
    const CatalogTreeNode* node = m_model.GetCurrentNode();
    if (!manager || !node)
        return;
    const QPersistentModelIndex moved = m_model.currentIndex();
    const auto call = [&] { return manager->MoveCatalog(node->id().toStdWString(), places < 0 ? kUp : kDown); };
    if (Commanded(tr("移动目录"), call))
        m_model.moveNode(moved, places);
}
