#include <QAction>
#include <QCheckBox>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "host/documents/DocumentPane.h"
#include "host/documents/FolderTree.h"
#include "host/managers/CurProjectMgr.h"
#include "host/managers/DocOperMgr.h"
#include "host/managers/ProgressDialog.h"
#include "host/platform/SessionKeeper.h"
#include "sdk/basetools/AuthCodeTool.h"
#include "sdk/baseui/FileDialog.h"
#include "tests/host/Windows.h"

namespace {

using BASETOOLS::CAuthCodeTool;
using support::ScriptedServer;

std::string document(const std::string& id, const std::string& name) {
    return R"({"id":")" + id + R"(","folderId":"f1","name":")" + name + R"(","uuid":"u","md5":"m","extension":"pdf",)" +
           R"("size":2048,"weaveDateMills":0,"updateBy":"zhang","updateRealname":"张工","updateDateMills":1,)" +
           R"("tags":["防水"],"contentNumber":1,"isDeleted":0})";
}

struct Rights final : BASEPACKAGE::IAuthInfoMgr {
    bool HasAuth(int code) const override {
        return (mayEdit && code == CAuthCodeTool::GetAuthCode(CAuthCodeTool::kEditTasks)) ||
               (mayDelete && code == CAuthCodeTool::GetAuthCode(CAuthCodeTool::kDeleteTasks));
    }
    bool mayEdit = true;
    bool mayDelete = true;
};

class Pane : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(workbench::SessionKeeper(client).logIn(platform.server.address(), "demo", "demo").ok());
        PROJECTPACKAGE::ProjectRecord record;
        record.deptId = L"D1";
        currentProject.open(record);
        platform.server.setHandler([this](const auto& request) { return answer(request); });
        BASEUI::SetMessageBoxHandler([this](const std::wstring& text, QWidget*, BASEUI::MessageButtons) {
            asked << QString::fromStdWString(text);
            return agrees ? BASEUI::MessageResult::Ok : BASEUI::MessageResult::Cancel;
        });
        pane.resize(1200, 700);
        pane.show();
    }
    void TearDown() override {
        BASEUI::SetMessageBoxHandler({});
        BASEUI::SetFileDialogHandler({});
    }

    ScriptedServer::Reply answer(const ScriptedServer::Request& request) {
        const std::string path = request.target.substr(0, request.target.find('?'));
        const bool isRead = request.method == "GET" && path.rfind("/rs/platform/documents", 0) == 0;
        if (isRead && isBroken)
            return support::refusal(500, 500, "坏了");
        if (path == "/rs/platform/documents/folders")
            return support::result(
                R"([{"id":"f1","parentId":"0","name":"图纸"},{"id":"f2","parentId":"f1","name":"梁"}])");
        if (path == "/rs/platform/documents/types")
            return support::result(R"([{"name":"文档","extensions":["pdf"]}])");
        if (path == "/rs/platform/documents/tags")
            return support::result(R"([{"id":"t1","name":"防水"}])");
        if (path == "/rs/platform/documents")
            return support::result(R"({"total":)" + std::to_string(total) + R"(,"list":[)" +
                                   (total == 0 ? "" : document("d1", "甲.pdf") + "," + document("d2", "乙.pdf")) +
                                   "]}");
        if (path == "/rs/platform/files")
            return request.target.find("bad") != std::string::npos
                       ? support::refusal(200, 422, "不能上传可执行文件")
                       : support::result(R"({"uuid":"new","md5":")" + request.md5 + R"(","size":)" +
                                         std::to_string(request.received) + "}");
        if (path == "/rs/platform/documents/delete" && request.body.find(R"("isForced":0)") != std::string::npos)
            return {200, R"({"code":409,"success":false,"msg":"关联","result":{"documents":2,"tasks":5}})"};
        return path.rfind("/rs/platform/documents", 0) == 0 ? support::result("{}") : platform.answer(request);
    }
    /// What was posted to the path since the last call, one line each.
    QStringList posted(const char* path) {
        QStringList bodies;
        const auto requests = platform.server.requests();
        for (; seen < requests.size(); ++seen)
            if (requests[seen].target == std::string("/rs/platform/documents/") + path)
                bodies << QString::fromStdString(requests[seen].body);
        return bodies;
    }
    std::string lastPage() const {
        const auto requests = platform.server.requests();
        const auto last = std::find_if(requests.rbegin(), requests.rend(), [](const auto& request) {
            return request.target.rfind("/rs/platform/documents?", 0) == 0;
        });
        return last == requests.rend() ? std::string() : last->target;
    }
    bool comesToShow(const QString& text) const {
        return support::comesTrue([&] {
            const auto* label = support::showing<QLabel>(pane, text);
            return label && label->isVisible();
        });
    }
    bool hasRows() {
        return support::comesTrue([&] { return table->topLevelItemCount() == 2; });
    }
    QAction* action(const char* name) const { return pane.findChild<QAction*>(name); }
    void selectAll() const { table->selectAll(); }
    void select(int row) const {
        table->clearSelection();
        table->topLevelItem(row)->setSelected(true);
    }
    void goTo(const QString& folder) const {
        tree->setCurrentItem(tree->findItems(folder, Qt::MatchRecursive | Qt::MatchExactly).front());
    }
    /// Triggers the action; in the dialog that it opens `answerIt` is done before Enter.
    void perform(const char* name, const std::function<void(QDialog&)>& answerIt = {}) {
        ASSERT_TRUE(action(name)->isEnabled()) << name << ": " << action(name)->toolTip().toStdString();
        if (answerIt)
            QTimer::singleShot(1, qApp, [&] {
                auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                ASSERT_NE(dialog, nullptr) << name;
                answerIt(*dialog);
                QTest::mouseClick(support::showing<QPushButton>(*dialog, "确定"), Qt::LeftButton);
                if (dialog->isVisible())
                    dialog->reject();
            });
        action(name)->trigger();
    }
    QString fileNamed(const QString& name) const {
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("content") > 0);
        return file.fileName();
    }

    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::CCurProjectMgr currentProject;
    workbench::ProgressDialog progress;
    QTemporaryDir dir;
    workbench::DocumentStore store{client, currentProject};
    workbench::CDocOperMgr opener{
        client, currentProject, progress, {dir.filePath("cache"), 1000}, std::chrono::seconds(30)};
    Rights rights;
    workbench::DocumentPane pane{store, opener, rights, std::chrono::seconds(30)};
    workbench::DropTree* tree = pane.findChild<workbench::DropTree*>("folders");
    workbench::DropTree* table = pane.findChild<workbench::DropTree*>("documents");
    std::atomic<bool> isBroken = false;
    std::atomic<int> total = 2;
    std::size_t seen = 0;
    bool agrees = true;
    QStringList asked;
};

TEST_F(Pane, SendsWhatTheUserDoes) {
    ASSERT_TRUE(hasRows());
    goTo("梁");
    ASSERT_TRUE(support::comesTrue([&] { return lastPage().find("folderId=f2") != std::string::npos; }));
    const auto type = [](const char* text) {
        return [text](QDialog& dialog) { dialog.findChild<QLineEdit*>()->setText(text); };
    };
    const auto choose = [](const char* folder) {
        return [folder](QDialog& dialog) {
            auto* list = dialog.findChild<QTreeWidget*>();
            list->setCurrentItem(list->findItems(folder, Qt::MatchRecursive | Qt::MatchExactly).front());
        };
    };
    const struct {
        const char* action;
        int row;  // of the selection; -1 is all
        std::function<void(QDialog&)> answer;
        const char* path;
        const char* body;  // a part of it
    } cases[] = {
        {"newFolder", -1, type(" 新 "), "folders/save", R"("name":"新","parentId":"f2")"},
        {"renameFolder", -1, type("板"), "folders/update", R"("id":"f2","name":"板")"},
        {"moveFolder", -1, choose("全部资料"), "folders/update", R"("id":"f2","parentId":"0")"},
        {"deleteFolder", -1, {}, "folders/delete", R"("id":"f2")"},
        {"rename", 0, type("丙"), "update", R"("ids":["d1"],"name":"丙.pdf")"},
        {"tag", -1, type("甲、乙,甲"), "update", R"("ids":["d1","d2"],"tags":["甲","乙"])"},
        {"weave", 1, [](QDialog& dialog) { dialog.findChild<QCheckBox*>()->setChecked(true); }, "update",
         R"("ids":["d2"],"weaveDateMills":0)"},
        {"move", -1, choose("图纸"), "update", R"("folderId":"f1","ids":["d1","d2"])"},
    };
    for (const auto& step : cases) {
        step.row < 0 ? selectAll() : select(step.row);
        perform(step.action, step.answer);
        const QStringList bodies = posted(step.path);
        ASSERT_EQ(bodies.size(), 1) << step.action;
        EXPECT_TRUE(bodies[0].contains(step.body)) << step.action << ": " << bodies[0].toStdString();
    }
    const std::size_t before = platform.server.requests().size();
    perform("newFolder", type("a/b"));
    EXPECT_EQ(platform.server.requests().size(), before) << "what cannot be a name stays in its field";

    BASEUI::SetFileDialogHandler([&](const CFileDialog&) { return fileNamed("新内容.pdf").toStdWString(); });
    select(1);
    perform("replace");
    EXPECT_TRUE(posted("save").value(0).contains(R"("id":"d2")"));
    EXPECT_TRUE(comesToShow("“乙.pdf”有了新内容"));
}

TEST_F(Pane, AsksBeforeItDeletesAndAgainWhereTasksLink) {
    ASSERT_TRUE(hasRows());
    selectAll();
    agrees = false;
    perform("delete");
    EXPECT_TRUE(posted("delete").isEmpty());
    agrees = true;
    asked.clear();
    perform("delete");
    const QStringList bodies = posted("delete");
    ASSERT_EQ(bodies.size(), 2);
    EXPECT_TRUE(bodies[1].contains(R"("ids":["d1","d2"],"isForced":1)"));
    ASSERT_EQ(asked.size(), 2);
    EXPECT_TRUE(asked[1].startsWith("有 5 个交底任务关联了所选资料"));

    pane.findChild<QCheckBox*>()->setChecked(true);
    EXPECT_NE(lastPage().find("deleted=1"), std::string::npos);
    select(0);
    EXPECT_FALSE(action("rename")->isEnabled() || action("upload")->isEnabled() || action("delete")->isEnabled());
    perform("restore");
    EXPECT_TRUE(posted("restore").value(0).contains(R"("ids":["d1"])"));
}

TEST_F(Pane, UploadsWhatIsDroppedAndOneThatFailsStopsNoOther) {
    ASSERT_TRUE(hasRows());
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(fileNamed("一.pdf")), QUrl::fromLocalFile(fileNamed("bad.pdf")),
                   QUrl::fromLocalFile(dir.filePath("没有.pdf")), QUrl::fromLocalFile(fileNamed("二.pdf"))});
    const QPoint place = tree->visualItemRect(tree->topLevelItem(0)->child(0)).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree->viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree->viewport(), &drop);
    EXPECT_TRUE(comesToShow("已上传 2 个文件，2 个文件没有上传"));
    const QStringList bodies = posted("save");
    ASSERT_EQ(bodies.size(), 2);
    EXPECT_TRUE(bodies[1].contains(R"("folderId":"f1")") && bodies[1].contains("二.pdf"));
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0].contains("bad.pdf：不能上传可执行文件") && asked[0].contains("没有.pdf：文件不存在"));
}

TEST_F(Pane, DisablesWhatTheUserMayNotDoAndSaysWhy) {
    const std::tuple<bool, bool, QStringList> cases[] = {
        {false, false, {"open", "save", "contents"}},
        {true,
         false,
         {"newFolder", "renameFolder", "upload", "open", "save", "contents", "replace", "rename", "tag", "weave"}},
        {false, true, {"moveFolder", "deleteFolder", "open", "save", "contents", "move", "delete"}},
    };
    for (const auto& [mayEdit, mayDelete, expected] : cases) {
        rights.mayEdit = mayEdit;
        rights.mayDelete = mayDelete;
        pane.startAnew();
        ASSERT_TRUE(hasRows());
        goTo("图纸");
        select(0);
        QStringList enabled;
        for (const QAction* each : pane.findChildren<QAction*>())
            if (!each->objectName().isEmpty() && !each->objectName().startsWith("_q")) {
                if (each->isEnabled())
                    enabled << each->objectName();
                else
                    EXPECT_FALSE(each->toolTip().isEmpty() || each->toolTip().contains("（")) << "a reason";
            }
        enabled.sort();
        QStringList sorted = expected;
        sorted.sort();
        EXPECT_EQ(enabled.join(' ').toStdString(), sorted.join(' ').toStdString());
        EXPECT_EQ(pane.findChild<QCheckBox*>()->isEnabled(), mayDelete);
    }
}

TEST_F(Pane, TellsWhatItCannotShowAndComesBackByItself) {
    isBroken = true;
    EXPECT_TRUE(comesToShow("坏了"));
    isBroken = false;
    QTest::mouseClick(support::showing<QPushButton>(pane, "重试"), Qt::LeftButton);
    ASSERT_TRUE(hasRows());
    select(1);
    isBroken = true;
    pane.readAgain();
    EXPECT_TRUE(comesToShow("坏了"));
    isBroken = false;
    QDialog modal;
    modal.setModal(true);
    modal.show();
    pane.OnServiceStateChanged(true);
    QTest::qWait(200);
    EXPECT_EQ(table->topLevelItemCount(), 0) << "not under a window whose command it could disturb";
    modal.hide();
    ASSERT_TRUE(hasRows());
    total = 0;
    pane.readAgain();
    EXPECT_TRUE(comesToShow("还没有资料"));
    pane.findChild<QLineEdit*>()->setText("柱");
    QTest::keyClick(pane.findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_TRUE(comesToShow("没有符合条件的资料"));
    total = 61;
    pane.findChild<QLineEdit*>()->clear();
    EXPECT_TRUE(comesToShow("共 61 份，第 1 / 3 页"));
    currentProject.close();
    pane.startAnew();
    EXPECT_TRUE(comesToShow("没有打开的工程"));
}

}  // namespace
