#include "host/documents/DocumentCommands.h"

#include <algorithm>

#include <QCheckBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QJsonArray>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/documents/ContentsDialog.h"
#include "host/documents/FolderTree.h"
#include "host/documents/FormDialog.h"
#include "host/managers/DocOperMgr.h"
#include "sdk/basetools/FileNameCheck.h"
#include "sdk/basetools/Uuid.h"
#include "sdk/baseui/FileDialog.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/baseui/ProgressDialog.h"

namespace workbench {
namespace {

constexpr int kMostNamed = 8;  // files in one message

QStringList idsOf(const DocumentCommands::Documents& documents) {
    QStringList ids;
    for (const Document& document : documents)
        ids << document.id;
    return ids;
}

QString newId() {
    return QString::fromStdWString(BASETOOLS::GenerateUUID());
}

/// What is wrong with a name; empty when nothing is.
QString faultOf(const QString& name) {
    if (name.trimmed().isEmpty())
        return DocumentCommands::tr("请输入名称");
    if (BASETOOLS::CFileNameCheck::HasForbiddenCharacter(name.toStdWString()))
        return DocumentCommands::tr("名称不能包含下列字符：\\ / : * ? \" < > |");
    return {};
}

/// "Name" of one, else how many there are.
QString nameOf(const DocumentCommands::Documents& documents) {
    return documents.size() == 1 ? DocumentCommands::tr("“%1”").arg(documents.front().name)
                                 : DocumentCommands::tr("所选的 %1 份资料").arg(documents.size());
}

}  // namespace

bool DocumentCommands::tell(const QString& why) {
    if (!why.isEmpty())
        BASEUI::ShowMessageBox(why.toStdWString(), &m_owner);
    return why.isEmpty();
}

bool DocumentCommands::ask(const QString& title, const QString& label, QWidget* field,
                           const std::function<QString()>& apply) {
    m_done.clear();
    return FormDialog(title, label, field, apply, &m_owner).exec() == QDialog::Accepted;
}

bool DocumentCommands::askForName(const QString& title, const QString& label, const QString& name,
                                  const std::function<QString(const QString& name)>& apply) {
    auto* field = new QLineEdit(name);
    field->selectAll();
    return ask(title, label, field, [&, field] {
        const QString fault = faultOf(field->text());
        return fault.isEmpty() ? apply(field->text().trimmed()) : fault;
    });
}

bool DocumentCommands::askForFolder(const QString& title, const Folders& folders, const QString& without,
                                    const std::function<QString(const QString& id)>& apply) {
    constexpr int kHeight = 320;
    auto* field = new QTreeWidget;
    field->setHeaderHidden(true);
    field->setMinimumHeight(kHeight);
    showFolders(*field, folders, without);
    return ask(title, tr("目标文件夹"), field, [&, field] { return apply(DropTree::idOf(field->currentItem())); });
}

bool DocumentCommands::createFolder(const QString& parentId) {
    const QString id = newId();  // kept for every try
    return askForName(tr("新建文件夹"), tr("文件夹名称"), {}, [&](const QString& name) {
        return m_store.saveFolder({id, parentId, name});
    });
}

bool DocumentCommands::renameFolder(const DocumentFolder& folder) {
    return askForName(tr("重命名文件夹"), tr("文件夹名称"), folder.name,
                      [&](const QString& name) { return m_store.renameFolder(folder.id, name); });
}

bool DocumentCommands::moveFolder(const DocumentFolder& folder, const Folders& all) {
    return askForFolder(tr("移动文件夹“%1”").arg(folder.name), all, folder.id,
                        [&](const QString& id) { return m_store.moveFolder(folder.id, id); });
}

bool DocumentCommands::moveFolderTo(const QString& id, const QString& parentId) {
    m_done.clear();
    return tell(m_store.moveFolder(id, parentId));
}

bool DocumentCommands::deleteFolder(const DocumentFolder& folder) {
    m_done.clear();
    return BASEUI::AskBeforeLoss(tr("确定删除文件夹“%1”吗？").arg(folder.name).toStdWString(),
                                 tr("只能删除没有下级文件夹和资料的文件夹。").toStdWString(),
                                 &m_owner) == BASEUI::MessageResult::Ok &&
           tell(m_store.deleteFolder(folder.id));
}

bool DocumentCommands::chooseAndUpload(const QString& folderId) {
    const QStringList paths = QFileDialog::getOpenFileNames(&m_owner, tr("选择要上传的文件"));
    return !paths.isEmpty() && upload(paths, folderId);
}

bool DocumentCommands::upload(const QStringList& paths, const QString& folderId) {
    m_done.clear();
    QStringList failures;
    int stored = 0;
    bool isCancelled = false;
    {
        const BIMScrollBar::ProgressScope progress(tr("上传资料").toStdWString(), tr("正在准备…").toStdWString());
        for (int i = 0; i < paths.size() && !isCancelled; ++i) {
            const QString name = QFileInfo(paths[i]).fileName();
            if (auto* dialog = BIMScrollBar::KnSbInterface::Instance())
                dialog->ShowProgressDialog(
                    tr("上传资料").toStdWString(),
                    tr("正在上传第 %1 / %2 个文件：%3").arg(i + 1).arg(paths.size()).arg(name).toStdWString());
            const Answer answer = m_store.upload(newId(), folderId, paths[i], m_patience);
            isCancelled = answer.outcome == Outcome::Cancelled;
            stored += answer.ok() ? 1 : 0;
            if (!answer.ok() && !isCancelled)
                failures << tr("%1：%2").arg(name, answer.text);
        }
    }
    QStringList words;
    if (stored > 0)
        words << tr("已上传 %1 个文件").arg(stored);
    if (isCancelled)
        words << tr("%1 个文件已取消").arg(paths.size() - stored - failures.size());
    if (!failures.isEmpty()) {
        words << tr("%1 个文件没有上传").arg(failures.size());
        const QString rest = failures.size() > kMostNamed ? "\n…" : QString();
        tell(words.join("，") + "：\n\n" + failures.mid(0, kMostNamed).join('\n') + rest);
    }
    m_done = words.join("，");
    return stored > 0;
}

bool DocumentCommands::replace(const Document& document) {
    m_done.clear();
    CFileDialog dialog(true, {}, {}, CFileDialog::kHideReadOnly, tr("所有文件|*||").toStdWString(), &m_owner);
    if (dialog.DoModal() != CFileDialog::Result::Ok)
        return false;
    const QString path = QDir::fromNativeSeparators(QString::fromStdWString(dialog.GetPathName()));
    Answer answer;
    {
        const BIMScrollBar::ProgressScope progress(tr("替换内容").toStdWString(),
                                                   tr("正在上传“%1”的新内容…").arg(document.name).toStdWString());
        answer = m_store.upload(document.id, document.folderId, path, m_patience);
    }
    if (!answer.ok())
        return answer.outcome != Outcome::Cancelled && tell(answer.text);
    m_done = tr("“%1”有了新内容，原来的内容仍在历史内容中").arg(document.name);
    return true;
}

bool DocumentCommands::rename(const Document& document) {
    const QString suffix = document.extension.isEmpty() ? QString() : "." + document.extension;
    const bool hasSuffix = document.name.endsWith(suffix, Qt::CaseInsensitive);
    const QString kept = hasSuffix ? document.name.right(suffix.size()) : QString();
    return askForName(tr("重命名资料"),
                      kept.isEmpty() ? tr("资料名称") : tr("资料名称（扩展名 %1 保持不变）").arg(kept),
                      document.name.left(document.name.size() - kept.size()), [&](const QString& name) {
                          return m_store.change({document.id}, {{"name", name + kept}});
                      });
}

bool DocumentCommands::tag(const Documents& documents, const QStringList& knownTags) {
    static const QRegularExpression separators(QStringLiteral("[、，,;；\\s]+"));
    const bool isSame = std::all_of(documents.begin(), documents.end(),
                                    [&](const Document& d) { return d.tags == documents.front().tags; });
    auto* field = new QWidget;
    auto* line = new QLineEdit(isSame ? documents.front().tags.join("、") : QString());
    line->setObjectName("tags");
    line->setPlaceholderText(tr("多个标签用“、”分开；留空表示没有标签"));
    auto* list = new QListWidget;
    list->setAccessibleName(tr("已有的标签"));
    list->addItems(knownTags);
    const auto typed = [line] { return line->text().split(separators, Qt::SkipEmptyParts); };
    const auto mark = [list, typed] {
        for (int i = 0; i < list->count(); ++i)
            list->item(i)->setCheckState(typed().contains(list->item(i)->text()) ? Qt::Checked : Qt::Unchecked);
    };
    mark();
    QObject::connect(line, &QLineEdit::textEdited, list, mark);
    QObject::connect(list, &QListWidget::itemChanged, line, [line, typed](const QListWidgetItem* item) {
        QStringList tags = typed();
        if ((item->checkState() == Qt::Checked) == tags.contains(item->text()))
            return;
        if (item->checkState() == Qt::Checked)
            tags << item->text();
        else
            tags.removeAll(item->text());
        line->setText(tags.join("、"));
    });
    auto* layout = new QVBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(line);
    layout->addWidget(list);
    list->setVisible(!knownTags.isEmpty());
    field->setFocusProxy(line);
    return ask(tr("设置标签"),
               isSame ? tr("%1的标签").arg(nameOf(documents)) : tr("%1的标签将替换为").arg(nameOf(documents)), field,
               [&] {
                   QStringList tags = typed();
                   tags.removeDuplicates();
                   return m_store.change(idsOf(documents), {{"tags", QJsonArray::fromStringList(tags)}});
               });
}

bool DocumentCommands::setWeaveDay(const Documents& documents) {
    const qint64 known = documents.front().weaveMills;
    auto* field = new QWidget;
    auto* day = new QDateEdit(known > 0 ? QDateTime::fromMSecsSinceEpoch(known).date() : QDate::currentDate());
    day->setCalendarPopup(true);
    day->setDisplayFormat("yyyy-MM-dd");
    day->setMinimumDate({1970, 1, 2});
    auto* none = new QCheckBox(tr("没有编制时间(&N)"));
    QObject::connect(none, &QCheckBox::toggled, day, &QWidget::setDisabled);
    auto* layout = new QVBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(day);
    layout->addWidget(none);
    field->setFocusProxy(day);
    return ask(tr("编制时间"), tr("%1的编制时间").arg(nameOf(documents)), field, [&] {
        const qint64 mills = none->isChecked() ? 0 : day->date().startOfDay().toMSecsSinceEpoch();
        return m_store.change(idsOf(documents), {{"weaveDateMills", mills}});
    });
}

bool DocumentCommands::move(const Documents& documents, const Folders& folders) {
    return askForFolder(tr("移动%1").arg(nameOf(documents)), folders, {}, [&](const QString& id) {
        return m_store.change(idsOf(documents), {{"folderId", id}});
    });
}

bool DocumentCommands::moveTo(const Documents& documents, const QString& folderId) {
    m_done.clear();
    return tell(m_store.change(idsOf(documents), {{"folderId", folderId}}));
}

bool DocumentCommands::remove(const Documents& documents) {
    m_done.clear();
    const auto agrees = [this](const QString& question, const QString& details) {
        return BASEUI::AskBeforeLoss(question.toStdWString(), details.toStdWString(), &m_owner) ==
               BASEUI::MessageResult::Ok;
    };
    if (!agrees(tr("确定删除%1吗？").arg(nameOf(documents)), tr("删除后可以在“已删除”中恢复。")))
        return false;
    DocumentLinks links;
    const QStringList ids = idsOf(documents);
    const QString why = m_store.remove(ids, false, links);
    if (links.tasks == 0)
        return tell(why);
    return agrees(tr("有 %1 个交底任务关联了所选资料").arg(links.tasks),
                  tr("关联的资料有 %1 份。仍要删除吗？任务中的链接还能打开，显示为“已删除”。").arg(links.documents)) &&
           tell(m_store.remove(ids, true, links));
}

bool DocumentCommands::restore(const Documents& documents) {
    const bool restored = tell(m_store.restore(idsOf(documents)));
    m_done = restored ? tr("已恢复%1").arg(nameOf(documents)) : QString();
    return restored;
}

void DocumentCommands::open(const DocumentContent& content) {
    m_done.clear();
    m_opener.OpenDocument(content.uuid.toStdWString(), content.md5.toStdWString(), content.name.toStdWString(), {});
}

void DocumentCommands::save(const DocumentContent& content) {
    m_done.clear();
    m_opener.saveDocument(content.uuid, content.md5, content.name, &m_owner);
}

void DocumentCommands::showContents(const Document& document) {
    m_done.clear();
    QString why;
    const auto contents = m_store.contents(document.id, why);
    if (!contents) {
        tell(why);
        return;
    }
    ContentsDialog dialog(document.name, *contents, &m_owner);
    QObject::connect(&dialog, &ContentsDialog::openWanted, &dialog, [this](const auto& content) { open(content); });
    QObject::connect(&dialog, &ContentsDialog::saveWanted, &dialog, [this, &dialog](const auto& content) {
        m_opener.saveDocument(content.uuid, content.md5, content.name, &dialog);
    });
    dialog.exec();
}

}  // namespace workbench
