#include <gtest/gtest.h>

#include <QDialog>
#include <QQuickItem>
#include <QTest>

#include "commands/DisclosureManage/ui/document/ConnectDocModel.h"
#include "commands/DisclosureManage/ui/document/ConnectDocWnd.h"
#include "tests/support/FakeDocuments.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/ScreenHost.h"

using DISCLOSUREPACKAGE::TaskDocRecord;
using support::FakeDocuments;
using support::ModalWindow;

namespace {

TaskDocRecord link(const wchar_t* linkId, const wchar_t* documentId, const wchar_t* uuid, int32_t source = 0) {
    return {linkId, L"t0",  3,      std::wstring(documentId) + L".pdf", uuid, std::wstring(L"m") + uuid,
            9,      L"pdf", source, source == 0 ? documentId : L""};
}

QString outline(const DocumentLinks& docs) {
    QStringList texts;
    for (const TaskDocRecord& doc : docs)
        texts << QString::fromStdWString((doc.id.size() == 36 ? L"new" : doc.id) + L":" + doc.uuid + L":" +
                                         std::to_wstring(doc.ppid));
    return texts.join(' ');
}

class DocumentPicker : public testing::Test {
protected:
    DocumentPicker() { store.fill(40); }

    /// Opens the picker, does `steps` in it, and tells whether it was accepted.
    bool pick(DocumentLinks& docs, const std::function<void()>& steps) {
        bool isAccepted = false;
        ModalWindow::run([&] { isAccepted = CConnectDocWnd::choose(docs); },
                         [&](ModalWindow& opened) {
                             window = &opened;
                             model = qobject_cast<CConnectDocModel*>(opened.context("connectDocMode"));
                             settle();
                             steps();
                         });
        return isAccepted;
    }
    /// Lets every query that is due run, and its answer be drawn.
    void settle() {
        QTest::qWait(1);
        const auto isQuiet = [](const QTimer* timer) { return !timer->isActive(); };
        const auto timers = model->findChildren<QTimer*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return std::all_of(timers.begin(), timers.end(), isQuiet); }));
        ModalWindow::settle();
    }
    void open(const char* folder) {
        model->setCurTreeIndex(model->folderTreeModel()->indexOfFolder(folder));
        settle();
    }
    void search(const char* placeholder, const char* key) {
        window->fill(window->find("placeholderText", placeholder), key).key(Qt::Key_Return);
    }
    CFileModel* row(int number) const { return model->fileListModel()->task_list()->at(number); }
    /// Folder, page size and number of the last query with its filters; a range in days of the local calendar.
    QString asked() const {
        const auto& query = store.queries.back();
        const auto time = [](int64_t at) { return QDateTime::fromSecsSinceEpoch(at).toString("MM-dd hh:mm:ss"); };
        QStringList parts;
        for (const std::wstring& part : {query.folderId, query.fileType, query.updateBy, query.tagId, query.nameKey})
            parts << QString::fromStdWString(part);
        parts << (query.startSeconds == 0 ? "" : time(query.startSeconds) + ".." + time(query.endSeconds));
        return parts.join('|') + QString("|%1x%2").arg(query.currentPage).arg(query.pageSize);
    }
    auto count(const std::wstring& call) const { return std::count(store.calls.begin(), store.calls.end(), call); }

    support::ScreenHost host;
    FakeDocuments store{host.core};
    ModalWindow* window = nullptr;
    CConnectDocModel* model = nullptr;
    DocumentLinks none;
};

}  // namespace

TEST_F(DocumentPicker, EveryControlAsksForWhatItSays) {
    using Hand = std::function<void()>;
    const auto click = [this](const char* name) -> Hand {
        return [=, this] { window->click(window->find("objectName", name)); };
    };
    const auto clickText = [this](const char* text) -> Hand { return [=, this] { window->click(text); }; };
    const auto choose = [this](const char* caption, int index) -> Hand {
        return [=, this] {
            QQuickItem* box = support::findItem(window->find("caption", caption), [](QQuickItem* item) {
                return item->property("popupMaxHeight").isValid() && item->property("currentText").isValid();
            });
            QMetaObject::invokeMethod(box, "activated", Q_ARG(int, index));
        };
    };
    const auto type = [this](const char* property, const QString& value, const char* text) -> Hand {
        return [=, this] { window->fill(window->find(property, value), text).key(Qt::Key_Return); };
    };
    const QString day = QDate::currentDate().toString("yyyy-MM-dd");
    const QString start = "plans|||||" + day.mid(5) + " 00:00:00..";
    const std::pair<Hand, QString> rows[] = {
        {[] {}, "0||||||1x15"},
        {click("last"), "0||||||3x15"},
        {click("previous"), "0||||||2x15"},
        {click("next"), "0||||||3x15"},
        {click("first"), "0||||||1x15"},
        {type("objectName", "page", "9"), "0||||||3x15"},
        {choose("更新人:", 2), "0||zhang1||||1x15"},
        {click("next"), "0||zhang1||||2x15"},
        {choose("文件类型:", 2), "0|文档|zhang1||||1x15"},
        {choose("标签:", 2), "0|文档|zhang1|t2|||1x15"},
        {choose("标签:", 3), "0|文档|zhang1|none|||1x15"},
        {clickText("图纸"), "plans|文档||none|||1x15"},
        {choose("文件类型:", 0), "plans|||none|||1x15"},
        {choose("标签:", 0), "plans||||||1x15"},
        {type("placeholderText", "请输入资料名称关键字", "资料1"), "plans||||资料1||1x15"},
        {click("clear"), "plans||||||1x15"},
        {clickText("不限"), start + day.mid(5) + " 23:59:59|1x15"},
        {type("text", day, "2100-01-02"), start + "01-02 23:59:59|1x15"},  // the end
        {clickText("不限"), "plans||||||1x15"},
        {[this] { QMetaObject::invokeMethod(window->find("objectName", "pageSizes"), "activated", Q_ARG(int, 2)); },
         "plans||||||1x30"},
    };
    EXPECT_FALSE(pick(none, [&] {
        EXPECT_EQ(window->dialog()->windowTitle(), "关联资料");
        for (const auto& [hand, query] : rows) {
            hand();
            settle();
            EXPECT_EQ(asked().toStdString(), query.toStdString());
        }
        EXPECT_EQ(store.queries.size(), std::size(rows)) << "a change costs one query";
        EXPECT_EQ(count(L"updaters of plans"), 1);
        const auto isPreview = support::has("hoveredIconSource", QUrl("qrc:/ui/Images/preview_hover.png"));
        const QQuickItem* top = nullptr;
        window->find([&](QQuickItem* item) {
            if (isPreview(item) && (!top || support::centreOf(item).y() < support::centreOf(top).y()))
                top = item;
            return false;
        });
        window->click(top);
        EXPECT_EQ(store.calls.back(), L"open u0 m0 资料0.pdf in ");
        EXPECT_EQ(model->userCombo()->at(2)->name(), "张伟(zhang1)") << "there is another one";
        window->click("取消");
    }));
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(DocumentPicker, ChecksSurvivePagesFiltersAndFolders) {
    store.fill(1, L"safety");
    const DocumentLinks before{link(L"a", L"d1", L"u1"), link(L"up", L"", L"up", 1), link(L"b", L"gone", L"ug"),
                               link(L"c", L"d2", L"older"), link(L"e", L"d3", L"older")};
    DocumentLinks docs = before;
    EXPECT_TRUE(pick(docs, [&] {
        EXPECT_TRUE(window->text("已关联4份资料")) << "the deleted one too";
        row(1)->setSelected(false);
        row(2)->setSelected(false);
        row(2)->setSelected(true);  // takes the content that the document has now
        model->onClickLastPage();
        settle();
        row(0)->setSelected(true);
        search("请输入资料名称关键字", "资料40");
        open("safety");
        EXPECT_EQ(row(0)->docName(), "资料40.pdf");
        row(0)->setSelected(true);
        model->clearFilters();
        open("0");
        EXPECT_TRUE(window->text("已关联5份资料"));
        for (int number = 0; number < 4; ++number)
            EXPECT_EQ(row(number)->selected(), number > 1) << number;
        for (const int all : {18, 3}) {  // those of other pages stay
            window->click(window->find("objectName", "selectAll"));
            EXPECT_EQ(model->allSelect(), all);
        }
        row(2)->setSelected(true);
        row(3)->setSelected(true);
        window->click("确定");
    }));
    EXPECT_EQ(outline(docs), "up:up:3 b:ug:3 c:u2:3 e:u3:3 new:u30:0 new:u40:0");
    EXPECT_EQ(docs.back().refDocId, L"d40");

    docs = before;
    EXPECT_TRUE(pick(docs, [&] { window->click("确定"); }));
    EXPECT_EQ(outline(docs), outline(before)) << "what nobody touched keeps its content";
    EXPECT_FALSE(pick(docs, [&] {
        row(5)->setSelected(true);
        window->key(Qt::Key_Escape);
    }));
    EXPECT_EQ(outline(docs), outline(before));
}

TEST_F(DocumentPicker, AnInvertedRangeIsToldAndNotAskedFor) {
    pick(none, [&] {
        open("plans");
        model->setStartTime("2024-03-05");
        model->setEndTime("2024-03-05");
        model->setLimit(false);
        settle();
        EXPECT_EQ(asked(), "plans|||||03-05 00:00:00..03-05 23:59:59|1x15") << "one day";
        const auto queries = store.queries.size();
        model->setEndTime("2024-03-04");
        EXPECT_TRUE(host.messages.isEmpty()) << "not in the middle of what changes it";
        settle();
        EXPECT_EQ(host.messages, QStringList{"开始时间不能大于结束时间！"});
        EXPECT_TRUE(window->find("day", "2024-03-04"));
        EXPECT_FALSE(model->reading()->covers()) << "the documents stay";
        model->onSearchDoc();
        open("safety");
        EXPECT_EQ(host.messages.size(), 2);
        EXPECT_TRUE(model->reading()->covers()) << "they are another folder's";
        EXPECT_EQ(store.queries.size(), queries);
        window->click("清除条件");
        settle();
        EXPECT_EQ(asked(), "safety||||||1x15") << "the range does not count";
    });
    EXPECT_EQ(host.messages.size(), 2);
}

TEST_F(DocumentPicker, SaysWhatItCouldNotReadAndReadsItAgain) {
    store.files.clear();
    const std::pair<std::wstring, QString> rows[] = {
        {L"folders", ""}, {L"types", "筛选条件"}, {L"tags", "筛选条件"}, {L"page", ""}, {L"updaters of 0", "筛选条件"}};
    for (const auto& [refused, what] : rows)
        for (const bool isBack : {false, true}) {
            store.calls.clear();
            store.refused = refused;
            host.service.become(L"服务无法连接");
            pick(none, [&, &said = what] {
                EXPECT_TRUE(window->text(said + "未能读取：服务无法连接")) << store.refused;
                store.refused.clear();
                if (isBack)
                    host.service.become({});
                else
                    window->click("重试");
                settle();
                EXPECT_FALSE(window->text(said + "未能读取：服务无法连接"));
                EXPECT_TRUE(window->text("此目录下没有资料"));
            });
            for (const auto& [call, unused] : rows)
                EXPECT_EQ(count(call), call == refused ? 2 : 1) << call << L" " << refused;
        }
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(DocumentPicker, WithoutAManagerTheRestWorks) {
    using namespace BASECORE::NAMES;
    for (const std::wstring missing : FakeDocuments::kNames) {
        host.core.managers.erase(missing);
        const bool isListed = missing != kDocumentFolders && missing != kDocumentFileList;
        DocumentLinks docs{link(L"a", L"d1", L"u1")};
        store.calls.clear();
        pick(docs, [&] {
            EXPECT_EQ(window->text("图纸") != nullptr, missing != kDocumentFolders);
            ASSERT_EQ(model->fileListModel() != nullptr, isListed) << missing;
            EXPECT_EQ(model->filetypeCombo()->size(), missing == kDocumentConfig ? 0 : 3);
            EXPECT_EQ(model->tagCombo()->size(), missing == kDocumentTags ? 0 : 4);
            EXPECT_EQ(model->userCombo()->size(), isListed ? 4 : 1);
            EXPECT_TRUE(window->text("已关联1份资料"));
            if (isListed) {
                model->onClickPreviewDoc(row(0));
                EXPECT_EQ(count(L"open u0 m0 资料0.pdf in "), missing != kDocumentOperations);
                host.core.managers.erase(kDocumentFileList);
                window->click(window->find("objectName", "next"));
                settle();
                EXPECT_TRUE(window->text("资料0.pdf")) << "what was listed stays";
            }
        });
        for (const wchar_t* name : FakeDocuments::kNames)
            host.core.managers[name] = &store;
    }
    EXPECT_TRUE(host.messages.isEmpty());
    host.core.managers.erase(kDisclosure);
    ModalWindow::expectNone([&] { EXPECT_FALSE(CConnectDocWnd::choose(none)); });
}

TEST_F(DocumentPicker, FoldersAreSearchedWithTheWayToThem) {
    store.folders.push_back({L"lost", L"gone", L"孤儿"});
    for (int i = 0; i < 300; ++i)
        store.folders.push_back({L"n" + std::to_wstring(i), L"tower", L"Floor<b>" + std::to_wstring(i)});
    const auto find = [this](const char* key) {
        search("请输入目录关键字", key);
        settle();
    };
    pick(none, [&] {
        EXPECT_TRUE(window->text("孤儿")) << "nobody's folder is lost";
        EXPECT_FALSE(window->text("一号楼")) << "of many only the top is open";
        window->click("图纸");
        settle();
        find("fLOOR<b>299");
        EXPECT_FALSE(window->text("安全"));
        ASSERT_TRUE(window->text("Floor<b>299"));
        EXPECT_EQ(window->text("Floor<b>299")->property("textFormat").toInt(), 0) << "what was typed is no markup";
        EXPECT_EQ(asked(), "plans||||||1x15") << "the folder is on the way and stays";
        find("安");
        EXPECT_EQ(asked(), "0||||||1x15") << "it is out of sight";
        find("没有");
        EXPECT_TRUE(window->text("没有找到“没有”"));
        window->click(window->find("objectName", "next"));
        settle();
        EXPECT_EQ(asked(), "0||||||1x15") << "no folder is selected";
        window->click("清除搜索");
        settle();
        EXPECT_EQ(asked(), "0||||||2x15") << "what the paging bar says";
        EXPECT_TRUE(window->text("安全"));
        find("一号");
        window->click("一号楼");
        find("");
        EXPECT_EQ(asked(), "tower||||||1x15");
        EXPECT_TRUE(window->text("一号楼")) << "the way to the selected folder is open";
    });
}
