#include <csignal>

#include <QApplication>
#include <QCryptographicHash>
#include <QDate>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QTest>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "tests/end_to_end/Editor.h"
#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/TaskRows.h"
#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

const QString kName = QStringLiteral("塔吊安装技术交底");
const QString kNewName = QStringLiteral("塔吊安装与验收交底 🏗");
const QString kFile = QStringLiteral("塔吊安装方案.pdf");
const QString kHome = QStringLiteral("机电安装");
const QString kTarget = QStringLiteral("模板工程");
const QString kTargetTop = QStringLiteral("土建工程");
const QString kSave = QStringLiteral("保存计划");
const QString kPublish = QStringLiteral("发布交底");
const QString kNameField = QStringLiteral("任务名称：");

/// Takes a picture of the progress dialog in the middle of a transfer, during which no timer runs.
class ProgressPicture : public QObject {
public:
    ProgressPicture() { qApp->installEventFilter(this); }
    bool wasTaken() const { return m_wasTaken; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* bar = event->type() == QEvent::Paint ? qobject_cast<QProgressBar*>(watched) : nullptr;
        if (bar && !m_wasTaken && bar->value() > bar->maximum() / 4 &&
            bar->window()->windowTitle() == QStringLiteral("处理状态")) {
            m_wasTaken = true;
            pictureAtOnce("upload-progress");
        }
        return false;
    }

private:
    bool m_wasTaken = false;
};

qint64 millsOf(QDate date) {
    return date.startOfDay().toMSecsSinceEpoch();
}

qint64 number(const QJsonObject& object, const char* key) {
    return object.value(QLatin1String(key)).toVariant().toLongLong();
}

int countOf(ServiceProbe& service, const QString& catalog) {
    return service.tasks(service.catalogId(catalog)).value("totalCount").toInt();
}

QString labelOf(const QString& catalog, int count) {
    return QStringLiteral("%1(%2)").arg(catalog).arg(count);
}

/// The tree shows it at once, and the service has counted so.
void expectCount(QQuickView* view, ServiceProbe& service, const QString& catalog, int count) {
    expectText(view, labelOf(catalog, count));
    expect(countOf(service, catalog) == count, QStringLiteral("%1 has %2 tasks").arg(catalog).arg(count));
}

void expectFirst(QQuickView* view, const QString& name) {
    expectSoon([&] { return rows::firstTask(view) && rows::firstTask(view)->property("name") == name; },
               "first in the list is " + name);
}

QByteArray writeDocument(const QString& path) {
    QByteArray content("%PDF-1.4\n");
    for (quint32 i = 0; content.size() < 40'000'000; ++i)
        content += QCryptographicHash::hash(QByteArray::number(i), QCryptographicHash::Sha512).repeated(64);
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a file can be written");
    return content;
}

void fillIn(QQuickView* view, const QString& path) {
    const QDate today = QDate::currentDate();
    picture("editor-empty");
    editor::enter(view, kNameField, "  " + kName);
    answering("refused", QStringLiteral("请选择交底人"), [&] { editor::press(view, kPublish); });
    editor::choosePeople(view, QStringLiteral("交底人："), "choose-discloser", {{"DEM", "张建国(demo)"}});
    editor::choosePeople(view, QStringLiteral("接受交底人："), "choose-receivers",
                         {{"李明", "李明(editor)"}, {"chenw", "陈伟(chenwei)"}});
    editor::enter(view, QStringLiteral("施工开始日期："), today.toString(Qt::ISODate));
    editor::enter(view, QStringLiteral("施工结束日期："), today.addDays(30).toString(Qt::ISODate));
    editor::enter(view, QStringLiteral("计划交底日期："), today.addDays(3).toString(Qt::ISODate));
    editor::enter(view, QStringLiteral("截止日期："), today.addDays(7).toString(Qt::ISODate));
    const ProgressPicture progress;
    editor::upload(view, path);
    expectText(view, kFile);
    expect(progress.wasTaken(), "the upload shows its progress");
    support::click(support::findByProperty(view, "maxlength", 300));
    support::retype(view, QStringLiteral("第一行\n第二行"));
    picture("editor-filled");
}

void expectStored(ServiceProbe& service, const QJsonObject& task, const QByteArray& content) {
    const QDate today = QDate::currentDate();
    const QJsonArray receivers = task.value("disclosureTaskReceiveUserList").toArray();
    const QJsonObject doc = task.value("disclosureTaskDocList").toArray().first().toObject();
    QStringList stored{task.value("name").toString(), task.value("disclosureUserName").toString(),
                       task.value("remark").toString(), doc.value("name").toString()};
    for (const QJsonValue& receiver : receivers)
        stored << receiver.toObject().value("userName").toString();
    expect(stored == QStringList{kName, "demo", "第一行\n第二行", kFile, "editor", "chenwei"},
           "the service has what was typed: " + stored.join('|'));
    const std::pair<const char*, int> days[] = {{"constructionStartDateMills", 0},
                                                {"constructionEndDateMills", 30},
                                                {"planDisclosureDateMills", 3},
                                                {"expiryDateMills", 7}};
    for (const auto& [key, day] : days)
        expect(number(task, key) == millsOf(today.addDays(day)), QStringLiteral("the service has the %1").arg(key));
    expect(service.file(doc.value("uuid").toString()) == content, "the document comes back as it was");
}

QString create(QQuickView* view, ServiceProbe& service) {
    const QTemporaryDir folder;
    const QByteArray content = writeDocument(folder.filePath(kFile));
    const int before = countOf(service, kHome);
    selectCatalog(view, labelOf(kHome, before));
    inDialog(
        QStringLiteral("交底任务"), [&] { press(view, Pane::Tasks, QStringLiteral("新建")); },
        [&](QQuickView* editor) {
            fillIn(editor, folder.filePath(kFile));
            expect(countOf(service, kHome) == before, "the service has no task that was refused");
            editor::press(editor, kSave);
        });
    expectCount(view, service, kHome, before + 1);
    expectFirst(view, kName);
    picture("task-created");
    const QString id = rows::firstTask(view)->property("id").toString();
    expectStored(service, service.task(id), content);
    return id;
}

bool statusLineSays(const QString& text) {
    const auto widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [&](QWidget* widget) {
        const auto* label = qobject_cast<QLabel*>(widget);
        return label && label->isVisible() && label->text().contains(text);
    });
}

/// While the service is away, nothing is saved and nothing typed is lost.
void editWithoutService(QQuickView* view, ServiceProbe& service, const QString& id) {
    inDialog(
        QStringLiteral("交底任务"), [&] { rows::clickEdit(view); },
        [&](QQuickView* editor) {
            expect(editor::value(editor, kNameField) == kName, "the editor shows the task");
            expectText(editor, kFile);
            editor::enter(editor, kNameField, kNewName);
            makeNetwork(SIGUSR2);
            answering("service-away", QStringLiteral("保存未完成："), [&] { editor::press(editor, kSave); });
            expect(editor->isVisible() && editor::value(editor, kNameField) == kNewName, "nothing typed is lost");
            expectSoon([] { return statusLineSays(QStringLiteral("服务无法连接")); }, "the status line says so");
            makeNetwork(SIGHUP);
            expectSoon([] { return statusLineSays(QStringLiteral("服务正常")); }, "the status line says so");
            editor::press(editor, kSave);
            expectSoon([&] { return service.task(id).value("name") == kNewName; }, "the service has the new name");
        });
    expectFirst(view, kNewName);
    picture("task-edited");
}

QByteArray sessionOfWorkbench() {
    using BASECORE::FRAME::LookupManager;
    const auto* web = LookupManager<BASECORE::WEB::IWebMgr>(BASECORE::NAMES::kWebService);
    expect(web && web->GetCurrentSession(), "the workbench is logged in");
    const auto* cookie =
        web->GetCurrentSession()->GetCookieHolder(web->GetServiceAddress(BASECORE::NAMES::kServiceKey));
    expect(cookie != nullptr, "the workbench has a cookie");
    return QByteArray::fromStdString(cookie->GetEntry("VALUE"));
}

void publishInExpiredSession(QQuickView* view, ServiceProbe& service, const QString& id) {
    const QByteArray session = sessionOfWorkbench();
    inDialog(
        QStringLiteral("交底任务"), [&] { rows::clickEdit(view); },
        [&](QQuickView* editor) {
            service.endSession(session);
            editor::press(editor, kPublish);
        });
    expect(sessionOfWorkbench() != session, "the workbench logged in again");
    expect(number(service.task(id), "isPublish") == 1, "the service has the task published");
    expectSoon([&] { return rows::firstTask(view)->property("released").toBool(); }, "the row is published");
}

void move(QQuickView* view, ServiceProbe& service, const QString& id) {
    const int home = countOf(service, kHome);
    const int target = countOf(service, kTargetTop);
    const QString wanted = service.catalogId(kTarget);
    expect(rows::checkFirst(view) == id, "the task is checked");
    inDialog(
        QStringLiteral("选择路径"), [&] { press(view, Pane::Tasks, QStringLiteral("移动")); },
        [&](QQuickView* chooser) {
            QQuickItem* row = nullptr;
            const auto isTarget = [](QQuickItem* item) {
                return item->property("text").toString().startsWith(kTarget + '(');
            };
            expectSoon([&] { return (row = support::findItem(chooser->contentItem(), isTarget)) != nullptr; },
                       "the chooser shows the catalogs");
            support::click(row);
            picture("task-move");
            clickText(chooser, QStringLiteral("确定"));
        });
    expect(service.task(id).value("disclosureCatalogId") == wanted, "the service moved the task");
    expectCount(view, service, kHome, home - 1);
    expectCount(view, service, kTargetTop, target + 1);
    picture("task-moved");
}

void remove(QQuickView* view, ServiceProbe& service, const QString& id) {
    const int before = countOf(service, kTargetTop);
    selectCatalog(view, labelOf(kTargetTop, before));
    expectFirst(view, kNewName);
    expect(rows::checkFirst(view) == id, "the task is checked");
    answering("task-delete", QStringLiteral("是否删除？删除后，不能恢复数据。"),
              [&] { press(view, Pane::Tasks, QStringLiteral("删除")); });
    expect(service.task(id).isEmpty(), "the service deleted the task");
    expectCount(view, service, kTargetTop, before - 1);
    expectSoon([&] { return rows::firstTask(view)->property("name") != kNewName; }, "the list dropped the task");
    picture("task-deleted");
}

}  // namespace

void walkTaskLife(QQuickView* view, ServiceProbe& service) {
    const QString id = create(view, service);
    editWithoutService(view, service, id);
    publishInExpiredSession(view, service, id);
    move(view, service, id);
    remove(view, service, id);
}
