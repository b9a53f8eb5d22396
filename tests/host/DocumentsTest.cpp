#include <csignal>
#include <sys/resource.h>

#include <QApplication>
#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtEndian>
#include <QtTest/QTest>

#include "host/documents/DecodedText.h"
#include "host/documents/DocumentCache.h"
#include "host/documents/DocumentKind.h"
#include "host/managers/CurProjectMgr.h"
#include "host/managers/DocConfigMgr.h"
#include "host/managers/DocFileListMgr.h"
#include "host/managers/DocFolderMgr.h"
#include "host/managers/DocOperMgr.h"
#include "host/managers/DocTagMgr.h"
#include "host/managers/ProgressDialog.h"
#include "host/managers/ProjectDataMgr.h"
#include "host/platform/SessionKeeper.h"
#include "sdk/basetools/TimeValue.h"
#include "sdk/baseui/MessageBox.h"
#include "sdk/packages/disclosure/LastFailure.h"
#include "tests/host/TestPlatform.h"

namespace {

using support::ScriptedServer;

QByteArray md5(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

class Documents : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(workbench::SessionKeeper(client).logIn(platform.server.address(), "demo", "demo").ok());
        PROJECTPACKAGE::ProjectRecord record;
        record.ppid = 1;
        record.deptId = L"D1";
        currentProject.open(record);
        BASEUI::SetMessageBoxHandler([this](const std::wstring& text, QWidget*, BASEUI::MessageButtons) {
            told << QString::fromStdWString(text);
            return BASEUI::MessageResult::Ok;
        });
    }
    void TearDown() override {
        BASEUI::SetMessageBoxHandler({});
        for (QWidget* window : QApplication::topLevelWidgets())
            delete qobject_cast<workbench::DocumentWindow*>(window);
    }
    std::string lastTarget() const { return platform.server.requests().back().target; }

    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::CCurProjectMgr currentProject;
    workbench::DocumentStore store{client, currentProject};
    workbench::PlatformData data{client};
    QStringList told;
};

constexpr char kDocument[] =
    R"({"id":"d1","folderId":"f1","name":"方案.pdf","uuid":"u1","md5":"m1","extension":"pdf","size":7,)"
    R"("weaveDateMills":1780000000000,"updateBy":"zhang","updateRealname":"张工","updateDateMills":1,)"
    R"("tags":["防水","重要"],"contentNumber":2,"isDeleted":1})";

TEST_F(Documents, ManagersAskWhatTheyAreAskedAndGiveWhatTheServiceHas) {
    workbench::CProjectDataMgr projects(data);
    workbench::CDocConfigMgr types(store);
    workbench::CDocFolderMgr folders(store, currentProject, projects);
    workbench::CDocFileListMgr files(store);
    workbench::CDocTagMgr tags(store);
    platform.server.setHandler([this](const auto& request) -> ScriptedServer::Reply {
        const std::string path = request.target.substr(0, request.target.find('?'));
        if (path == "/rs/platform/documents/types")
            return support::result(R"([{"name":"图纸","extensions":["dwg"]}])");
        if (path == "/rs/platform/documents/folders")
            return support::result(R"([{"id":"f1","parentId":"0","name":"图"}])");
        if (path == "/rs/platform/documents")
            return support::result(std::string(R"({"total":31,"list":[)") + kDocument + "]}");
        if (path == "/rs/platform/documents/find")
            return support::result(std::string("[") + kDocument + "]");
        if (path == "/rs/platform/documents/updaters")
            return support::result(R"([{"userName":"zhang","realname":"张工"}])");
        if (path == "/rs/platform/documents/tags")
            return support::result(R"([{"id":"t1"}])");  // malformed
        return platform.answer(request);
    });

    std::vector<std::wstring> names;
    std::vector<std::wstring> extensions{L"old"};
    EXPECT_TRUE(types.GetFileTypes(names) && types.GetFileTypes(names));
    EXPECT_EQ(names, (std::vector<std::wstring>{L"全部", L"图纸"}));
    EXPECT_TRUE(types.GetExtensions(extensions, L"全部") && extensions.empty());
    EXPECT_TRUE(types.GetExtensions(extensions, L"图纸"));
    EXPECT_EQ(extensions, (std::vector<std::wstring>{L"dwg"}));
    EXPECT_FALSE(types.GetExtensions(extensions, L"没有"));
    EXPECT_EQ(platform.server.requests().size(), 2U) << "the login, and the types once";

    std::vector<DOCUMENTPACKAGE::DocFolderRecord> tree;
    EXPECT_TRUE(folders.GetFolders(tree, 2));
    EXPECT_EQ(lastTarget(), "/rs/platform/documents/folders?deptId=D2");
    ASSERT_EQ(tree.size(), 2U);
    EXPECT_TRUE(tree[0].id == DOCUMENTPACKAGE::kTopFolder && tree[0].parentId.empty() && tree[0].name == L"全部资料");
    EXPECT_FALSE(folders.GetFolders(tree, 99)) << "no such project";

    double first = 0;
    double last = 0;
    BASETOOLS::CKpxTimeValue::GetTotalTimeDefine(first, last);
    DOCUMENTPACKAGE::DocFileQuery query;
    query.folderId = L"f1";
    query.fileType = L"全部";
    query.nameKey = L"A&B";
    query.startSeconds = BASETOOLS::CKpxTimeValue::OleDateToSeconds(first);
    query.endSeconds = BASETOOLS::CKpxTimeValue::OleDateToSeconds(last);
    query.pageSize = 15;
    std::vector<DOCUMENTPACKAGE::DocFileRecord> page;
    int32_t total = 0;
    EXPECT_TRUE(files.PageFiles(page, total, query));
    EXPECT_EQ(lastTarget(),
              "/rs/platform/documents?deptId=D1&folderId=f1&keyword=A%26B&deleted=0&currentPage=1&pageSize=15");
    ASSERT_TRUE(page.size() == 1 && total == 31);
    EXPECT_EQ(page[0].weaveTime, BASETOOLS::CKpxTimeValue::ToDayText(1780000000000));
    EXPECT_TRUE(page[0].updateBy == L"张工" && page[0].tag == L"防水、重要" && page[0].isDeleted);
    query.fileType = L"图纸";
    query.updateBy = L"zhang";
    query.tagId = DOCUMENTPACKAGE::kNoTag;
    query.startSeconds = 86400;
    query.endSeconds = 172799;
    EXPECT_TRUE(files.PageFiles(page, total, query));
    EXPECT_NE(lastTarget().find("&type=%E5%9B%BE%E7%BA%B8&updateBy=zhang&tag=none&keyword=A%26B&startSeconds=86400"
                                "&endSeconds=172799&"),
              std::string::npos);

    const std::size_t before = platform.server.requests().size();
    EXPECT_TRUE(files.FindFiles(page, std::vector<std::wstring>(101, L"d1"), L"D7"));
    EXPECT_EQ(platform.server.requests().size(), before + 2) << "a hundred at a time";
    EXPECT_EQ(lastTarget(), "/rs/platform/documents/find?deptId=D7&ids=d1");
    std::vector<DOCUMENTPACKAGE::DocUpdaterRecord> people;
    EXPECT_TRUE(files.GetUpdaters(people, L"f1") && people[0].userName == L"zhang" && people[0].name == L"张工");

    std::vector<DOCUMENTPACKAGE::DocTagRecord> labels{{L"old", L"旧"}};
    EXPECT_FALSE(tags.GetTags(labels));
    EXPECT_TRUE(labels.size() == 1 && !DISCLOSUREPACKAGE::LastFailure().empty()) << "what was there stays";
}

TEST(DocumentCache, HoldsWholeAndRightContentsOnlyAndNoMoreThanItMay) {
    const QTemporaryDir dir;
    workbench::DocumentCache cache(dir.filePath("documents"), 25);
    int fetches = 0;
    const auto get = [&](const QByteArray& content, const QByteArray& sent, const QString& failure = {}) {
        QString why;
        const QString path = cache.file(
            md5(content), "pdf",
            [&](const QString& target) {
                ++fetches;
                QFile file(target);
                EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(sent) == sent.size());
                return failure;
            },
            why);
        EXPECT_EQ(path.isEmpty(), !why.isEmpty());
        return path;
    };
    const auto files = [&] { return QDir(dir.filePath("documents")).entryList(QDir::Files | QDir::Hidden); };
    const QByteArray first(10, 'a');
    const QByteArray second(10, 'b');

    EXPECT_EQ(get(first, "aaa", "连接中断"), "");
    EXPECT_EQ(get(first, second), "") << "another content than the one that was asked for";
    EXPECT_TRUE(files().isEmpty()) << "nothing half";
    const QString path = get(first, first);
    EXPECT_TRUE(path.endsWith("/" + md5(first) + ".pdf"));
    EXPECT_EQ(QFile::permissions(path) & (QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther), 0);
    EXPECT_EQ(get(first, {}), path);
    EXPECT_EQ(fetches, 3) << "it is there";

    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    QFile damaged(path);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("spoilt");
    damaged.close();
    EXPECT_EQ(get(first, first), path);
    EXPECT_EQ(fetches, 4) << "it was damaged";

    get(second, second);
    QTest::qWait(20);  // times of files are that coarse
    get(first, {});
    QTest::qWait(20);
    get(QByteArray(10, 'c'), QByteArray(10, 'c'));
    EXPECT_TRUE(files().size() == 2 && !files().contains(md5(second) + ".pdf")) << "used longest ago";
    const QString large = get(QByteArray(40, 'd'), QByteArray(40, 'd'));
    EXPECT_EQ(files(), QStringList{QFileInfo(large).fileName()}) << "more than all may take, alone";

    QString why;
    EXPECT_EQ(cache.file(
                  "../../x", "pdf", [](const QString&) { return QString(); }, why),
              "");
    EXPECT_FALSE(why.isEmpty());
}

TEST(DocumentText, IsReadInTheEncodingThatItHas) {
    const QString text = "交底 𠮷\r\n二";
    const auto in = [&](const char* codec) { return QTextCodec::codecForName(codec)->fromUnicode(text); };
    const std::tuple<QByteArray, QString, const char*, bool> cases[] = {
        {text.toUtf8(), text, "UTF-8", true},
        {"\xef\xbb\xbf" + text.toUtf8(), text, "UTF-8", true},
        {in("UTF-16LE").startsWith("\xff\xfe") ? in("UTF-16LE") : "\xff\xfe" + in("UTF-16LE"), text, "UTF-16", true},
        {in("UTF-16BE").startsWith("\xfe\xff") ? in("UTF-16BE") : "\xfe\xff" + in("UTF-16BE"), text, "UTF-16", true},
        {in("GB18030"), text, "GB18030", true},
        {"", "", "UTF-8", true},
        {"ok \xff\xff", {}, "GB18030", false},
    };
    for (const auto& [bytes, expected, encoding, isWhole] : cases) {
        const auto decoded = workbench::decodeText(bytes);
        ASSERT_TRUE(decoded) << encoding;
        EXPECT_EQ(decoded->encoding, encoding);
        EXPECT_EQ(decoded->isWhole, isWhole);
        EXPECT_TRUE(!isWhole || decoded->text == expected) << decoded->text.toStdString();
    }
    EXPECT_FALSE(workbench::decodeText(QByteArray("PK\3\4\0\0", 6)));
}

TEST(DocumentNames, NeverReachTheDiskAsPathsOrPrograms) {
    const std::tuple<QString, QString, QString> cases[] = {
        {"方案.PDF", "方案.PDF", "pdf"},
        {"../../etc/passwd", "_.._etc_passwd", "bin"},
        {"a.docx/..\\b.sh", "a.docx_.._b.sh", "bin"},
        {"启动.desktop", "启动.desktop", "bin"},
        {"x.exe", "x.exe", "bin"},
        {".\n. ", "_", "bin"},
        {"无扩展名", "无扩展名", "bin"},
        {QString(300, 'n') + ".dwg", QString(76, 'n') + ".dwg", "dwg"},
    };
    for (const auto& [name, file, extension] : cases) {
        EXPECT_EQ(workbench::safeFileName(name).toStdString(), file.toStdString());
        EXPECT_EQ(workbench::safeExtension(name), extension);
    }
}

QByteArray png(const QSize& size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(&buffer, "PNG");
    qToBigEndian(size.width(), bytes.data() + 16);
    qToBigEndian(size.height(), bytes.data() + 20);
    const QByteArray header = bytes.mid(12, 17);
    quint32 crc = ~0U;
    for (const char byte : header) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xEDB88320U : crc >> 1;
    }
    qToBigEndian(~crc, bytes.data() + 29);
    return bytes;
}

QByteArray pdf() {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    painter.drawText(500, 500, "A");
    painter.end();
    return buffer.data();
}

class OpenedDocument : public Documents {
protected:
    void serve(const QByteArray& content) {
        platform.server.setHandler([this, content](const auto& request) -> ScriptedServer::Reply {
            if (request.target.rfind("/rs/platform/files/u%2F1?deptId=D1", 0) != 0)
                return platform.answer(request);
            return {200,
                    content.toStdString(),
                    "application/octet-stream",
                    {"ETag: \"" + md5(content).toStdString() + "\""}};
        });
    }
    bool open(const QByteArray& content, const QString& name) {
        return opener.OpenDocument(L"u/1", QString(md5(content)).toStdWString(), name.toStdWString(), {});
    }
    static workbench::DocumentWindow* window() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<workbench::DocumentWindow*>(widget))
                return found;
        return nullptr;
    }

    QTemporaryDir dir;
    workbench::ProgressDialog progress;
    QStringList launched;
    workbench::CDocOperMgr opener{client,
                                  currentProject,
                                  progress,
                                  workbench::DocumentCache(dir.filePath("cache"), 1 << 20),
                                  std::chrono::seconds(30),
                                  [this](const QString& path) {
                                      launched << path;
                                      return !path.endsWith("dwg");
                                  }};
};

TEST_F(OpenedDocument, IsShownAsWhatItIsOrSaysWhyNot) {
    const std::tuple<QString, QByteArray, bool, const char*> cases[] = {
        {"说明.txt", "交底", true, "UTF-8"},
        {"二进制.txt", QByteArray("a\0b", 3), false, "不是文本"},
        {"很长.log", QByteArray(9 << 20, 'x'), false, "文件有 9.0 MB"},
        {"照片.png", png({4, 3}), true, "4 × 3"},
        {"改名.jpg", png({4, 3}), true, "4 × 3"},
        {"巨图.png", png({30000, 30000}), false, "30000 × 30000"},
        {"坏图.png", png({4, 3}).left(45), false, "损坏"},
        {"其实是文本.png", "text", false, "不是可以识别的图片"},
        {"方案.pdf", pdf(), true, "第 1 / 1 页"},
        {"半份.pdf", pdf().left(200), false, "不是 PDF"},
        {"图片.pdf", png({4, 3}), false, "不是 PDF"},
        {"表.xlsx", "PK\3\4", true, "已交给系统"},
        {"图.dwg", "AC1027", false, "没有能打开"},
        {"程序.docx", "\177ELF...", false, "可执行程序"},
        {"未知.xyz", "abc", false, "不能直接打开"},
        {"脚本.sh", "echo", false, "不能直接打开"},
    };
    for (const auto& [name, content, isShown, said] : cases) {
        serve(content);
        EXPECT_EQ(open(content, name), isShown) << name.toStdString();
        auto* shown = window();
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->windowTitle(), name);
        QStringList texts;
        for (const QLabel* label : shown->findChildren<QLabel*>())
            if (label->isVisible())
                texts << label->text();
        EXPECT_TRUE(texts.join('\n').contains(said)) << name.toStdString() << ": " << texts.join('\n').toStdString();
        delete shown;
    }
    EXPECT_EQ(launched, (QStringList{dir.filePath("cache/" + md5("PK\3\4") + ".xlsx"),
                                     dir.filePath("cache/" + md5("AC1027") + ".dwg")}));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(OpenedDocument, CanBeUsedOverTheModalWindowThatItWasOpenedFromAndGoesWithIt) {
    auto opened = std::make_unique<QDialog>();
    opened->setModal(true);
    opened->show();
    serve("交底");
    ASSERT_TRUE(open("交底", "说明.txt"));
    EXPECT_EQ(window()->parentWidget(), opened.get());
    EXPECT_FALSE(window()->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), opened.get());
    QTest::keyPress(window()->windowHandle(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window(), nullptr) << "it took the key";
    ASSERT_TRUE(open("交底", "说明.txt"));
    opened.reset();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(OpenedDocument, ThatCannotBeHadIsToldOnce) {
    serve("another");
    EXPECT_FALSE(open("交底", "说明.txt"));
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains("说明.txt") && told[0].contains("内容与记录不符"));

    const QByteArray large(300000, 'x');
    serve(large);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit full{100000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_FALSE(open(large, "说明.txt"));
    setrlimit(RLIMIT_FSIZE, &old);
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(told[1].contains("磁盘空间可能不足")) << told[1].toStdString();
    EXPECT_TRUE(QDir(dir.filePath("cache")).entryList(QDir::Files | QDir::Hidden).isEmpty());
    EXPECT_EQ(window(), nullptr);
}

}  // namespace
