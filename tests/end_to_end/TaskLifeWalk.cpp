#include <csignal>

#include <QCryptographicHash>
#include <QDate>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QTemporaryDir>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/IWebMgr.h"
#include "sdk/basecore/ManagerNames.h"
#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

const QString kName = "塔吊安装技术交底";
const QString kNewName = "塔吊安装与验收交底";
const QString kOwnName = "塔吊安装与验收交底 🏗";
const QString kFile = "塔吊安装方案.pdf";
const QString kHome = "机电安装";
const QString kTarget = "模板工程";
const QString kTargetTop = "土建工程";
const QString kNameField = "任务名称：";

/// The days from today of each date, by the caption in the editor and the key in the service.
const std::tuple<const char*, const char*, int> kDays[] = {{"施工开始日期：", "constructionStartDateMills", 0},
                                                           {"施工结束日期：", "constructionEndDateMills", 30},
                                                           {"计划交底日期：", "planDisclosureDateMills", 3},
                                                           {"截止日期：", "expiryDateMills", 7}};

qint64 number(const QJsonObject& object, const char* key) {
    return object.value(QLatin1String(key)).toVariant().toLongLong();
}

QString labelOf(const QString& catalog, int count) {
    return QString("%1(%2)").arg(catalog).arg(count);
}

/// The tree shows it at once, and the service has counted so.
void expectCount(const View& view, ServiceProbe& service, const QString& catalog, int count) {
    view.expectText(labelOf(catalog, count));
    expect(service.count(catalog) == count, QString("%1 has %2 tasks").arg(catalog).arg(count));
}

QByteArray writeDocument(const QString& path) {
    QByteArray content("%PDF-1.4\n");
    for (quint32 i = 0; content.size() < 40'000'000; ++i)
        content += QCryptographicHash::hash(QByteArray::number(i), QCryptographicHash::Sha512).repeated(64);
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a file can be written");
    return content;
}

void fillIn(View& editor, const QString& path) {
    picture("editor-empty");
    editor.enter(kNameField, "  " + kName);
    answering("refused", "请选择交底人", [&] { editor.pressButton("发布交底"); });
    editor.choosePeople("交底人：", "choose-discloser", {{"DEM", "张建国(demo)"}});
    editor.choosePeople("接受交底人：", "choose-receivers", {{"李明", "李明(editor)"}, {"chenw", "陈伟(chenwei)"}});
    for (const auto& [caption, key, days] : kDays)
        editor.enter(caption, QDate::currentDate().addDays(days).toString(Qt::ISODate));
    {
        const DuringWait progress("upload-progress", [](QWidget* widget) {
            const auto* bar = qobject_cast<QProgressBar*>(widget);
            return bar && bar->value() > bar->maximum() / 4;
        });
        editor.upload(path);
    }
    editor.expectText(kFile);
    editor.click(editor.find("maxlength", 300)).compose("", "第一行\n第二行");  // no input method composes lines
    picture("editor-filled");
}

void expectStored(ServiceProbe& service, const QJsonObject& task, const QByteArray& content) {
    const QJsonObject doc = task.value("disclosureTaskDocList").toArray().first().toObject();
    QStringList stored{task.value("name").toString(), task.value("disclosureUserName").toString(),
                       task.value("remark").toString(), doc.value("name").toString()};
    for (const QJsonValue& receiver : task.value("disclosureTaskReceiveUserList").toArray())
        stored << receiver.toObject().value("userName").toString();
    expect(stored == QStringList{kName, "demo", "第一行\n第二行", kFile, "editor", "chenwei"},
           "the service has what was typed: " + stored.join('|'));
    for (const auto& [caption, key, days] : kDays)
        expect(number(task, key) == QDate::currentDate().addDays(days).startOfDay().toMSecsSinceEpoch(),
               QString("the service has the %1").arg(key));
    expect(service.file(doc.value("uuid").toString()) == content, "the document comes back as it was");
}

QString create(View& view, ServiceProbe& service) {
    const QTemporaryDir folder;
    const QByteArray content = writeDocument(folder.filePath(kFile));
    const int before = service.count(kHome);
    view.selectCatalog(labelOf(kHome, before));
    inDialog(
        "交底任务", [&] { view.press(Pane::Tasks, "新建"); },
        [&](View& editor) {
            fillIn(editor, folder.filePath(kFile));
            expect(service.count(kHome) == before, "the service has no task that was refused");
            editor.pressButton("保存计划");
        });
    expectCount(view, service, kHome, before + 1);
    view.expectFirst("name", kName);
    picture("task-created");
    const QString id = view.first("id");
    expectStored(service, service.task(id), content);
    return id;
}

void expectStatusLine(const QString& text) {
    const auto says = [&](QWidget* widget) {
        const auto* label = qobject_cast<QLabel*>(widget);
        return label && label->text().contains(text);
    };
    expectSoon([&] { return findWidget(says) != nullptr; }, "the status line says " + text);
}

/// While the service is away, nothing is saved and nothing typed is lost.
void editWithoutService(View& view, ServiceProbe& service, const QString& id) {
    inDialog(
        "交底任务", [&] { view.clickEdit(); },
        [&](View& editor) {
            expect(editor.value(kNameField) == kName, "the editor shows the task");
            editor.expectText(kFile);
            editor.enter(kNameField, kNewName);
            makeNetwork(SIGUSR2);
            answering("service-away", "保存未完成：", [&] { editor.pressButton("保存计划"); });
            expect(editor.isOpen() && editor.value(kNameField) == kNewName, "nothing typed is lost");
            expectStatusLine("服务无法连接");
            makeNetwork(SIGHUP);
            expectStatusLine("服务正常");
            editor.pressButton("保存计划");
            expectSoon([&] { return service.task(id).value("name") == kNewName; }, "the service has the new name");
        });
    view.expectFirst("name", kNewName);
    picture("task-edited");
}

/// Somebody else changes the task while its editor is open. A click beside the question leaves it above the editor.
void settleConflict(View& view, ServiceProbe& service, const QString& id) {
    inDialog(
        "交底任务", [&] { view.clickEdit(); },
        [&](View& editor) {
            editor.enter(kNameField, kOwnName);
            service.rename(id, "塔吊安装交底（他人）");
            const auto settle = [&](View& conflict) {
                conflict.expectText("塔吊安装交底（他人）");
                editor.click(editor.named(kNameField));
                expect(conflict.isOpen(), "the question stays");
                picture("conflict");
                conflict.clickText(kOwnName);
                conflict.clickText("保存");
            };
            answering("conflict-told", "任务已被他人修改", [&] {
                inDialog(
                    "任务已被他人修改", [&] { editor.pressButton("保存计划"); }, settle);
            });
        });
    expect(service.task(id).value("name") == kOwnName, "the service has what was chosen");
    view.expectFirst("name", kOwnName);
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

void publishInExpiredSession(View& view, ServiceProbe& service, const QString& id) {
    const QByteArray session = sessionOfWorkbench();
    inDialog(
        "交底任务", [&] { view.clickEdit(); },
        [&](View& editor) {
            service.endSession(session);
            editor.pressButton("发布交底");
        });
    expect(sessionOfWorkbench() != session, "the workbench logged in again");
    expect(number(service.task(id), "isPublish") == 1, "the service has the task published");
    view.expectFirst("released", "true");
}

void move(View& view, ServiceProbe& service, const QString& id) {
    const int home = service.count(kHome);
    const int target = service.count(kTargetTop);
    const QString wanted = service.catalogId(kTarget);
    view.checkFirst(id);
    inDialog(
        "选择路径", [&] { view.press(Pane::Tasks, "移动"); },
        [&](View& chooser) {
            chooser.click(chooser.expectBeginning(kTarget + '('));
            picture("task-move");
            chooser.clickText("确定");
        });
    expect(service.task(id).value("disclosureCatalogId") == wanted, "the service moved the task");
    expectCount(view, service, kHome, home - 1);
    expectCount(view, service, kTargetTop, target + 1);
    picture("task-moved");
}

void remove(View& view, ServiceProbe& service, const QString& id) {
    const int before = service.count(kTargetTop);
    view.selectCatalog(labelOf(kTargetTop, before));
    view.expectFirst("name", kOwnName);
    view.checkFirst(id);
    answering("task-delete", "是否删除？删除后，不能恢复数据。", [&] { view.press(Pane::Tasks, "删除"); });
    expect(service.task(id).isEmpty(), "the service deleted the task");
    expectCount(view, service, kTargetTop, before - 1);
    expectSoon([&] { return view.first("name") != kOwnName; }, "the list dropped the task");
    picture("task-deleted");
}

}  // namespace

void walkTaskLife(View& view, ServiceProbe& service) {
    const QString id = create(view, service);
    editWithoutService(view, service, id);
    settleConflict(view, service, id);
    publishInExpiredSession(view, service, id);
    move(view, service, id);
    remove(view, service, id);
}
