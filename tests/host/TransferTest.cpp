#include <fstream>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include "host/managers/CurProjectMgr.h"
#include "host/managers/FileDownloadMgr.h"
#include "host/managers/FileUploadMgr.h"
#include "host/platform/SessionKeeper.h"
#include "tests/host/TestPlatform.h"

namespace {

using support::refusal;
using support::ScriptedServer;
using Reply = ScriptedServer::Reply;
using Request = ScriptedServer::Request;
using Fault = ScriptedServer::Fault;

constexpr qint64 kMiB = 1024LL * 1024;
constexpr char kUuid[] = "0123456789abcdef0123456789abcdef";

bool isUpload(const Request& request) {
    return request.target.rfind("/rs/platform/files?", 0) == 0;
}

Reply stored(const std::string& md5, qint64 size) {
    return support::result(std::string(R"({"uuid":")") + kUuid + R"(","md5":")" + md5 + R"(","size":)" +
                           std::to_string(size) + R"(,"name":"n","extension":"pdf"})");
}

/// What a step of the user does on the UI thread, called for by the server's.
void onUiThread(std::function<void()> step) {
    QMetaObject::invokeMethod(qApp, std::move(step), Qt::QueuedConnection);
}

class TransferTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(keeper.logIn(platform.server.address(), "demo", "demo").ok());
        PROJECTPACKAGE::ProjectRecord project;
        project.deptId = L"D1";
        currentProject.open(project);
        client.setRecovery([this](const QString&) {
            ++renewals;
            return keeper.logInAgain().ok();
        });
        platform.server.setHandler([this](const Request& request) { return answer(request); });
    }

    Reply answer(const Request& request) {
        return isUpload(request) ? stored(request.md5, request.received) : platform.answer(request);
    }
    /// Uploads alone, in the order they were answered.
    std::vector<Request> uploads() const {
        std::vector<Request> found = platform.server.requests();
        std::erase_if(found, [](const Request& request) { return !isUpload(request); });
        return found;
    }
    QString fileOf(qint64 size, const QString& name = "方案 1+&.pdf") const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        QByteArray block(kMiB, '\0');
        for (int i = 0; i < block.size(); ++i)
            block[i] = static_cast<char>(i * 31 >> 3);
        for (qint64 rest = size; rest > 0; rest -= kMiB)
            file.write(block.constData(), std::min(rest, kMiB));
        return file.fileName();
    }
    /// The message of a failed upload; empty after a success.
    std::string failureOf(const QString& path, int32_t timeoutSeconds = 0) {
        return QString::fromStdWString(upload(path, timeoutSeconds).message).toStdString();
    }
    BASEPACKAGE::UploadResult upload(const QString& path, int32_t timeoutSeconds = 0) {
        BASEPACKAGE::UploadRequest request;
        request.path = path.toStdWString();
        BASEPACKAGE::UploadResult result;
        result.uuid = L"old";
        uploader.Upload(request, result, nullptr, timeoutSeconds);
        EXPECT_FALSE(uploader.IsUploading());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(result.uuid.empty(), !result.success);
        EXPECT_EQ(result.message.empty(), result.success);
        return result;
    }

    support::TestPlatform platform;
    workbench::PlatformClient client{std::chrono::seconds(30)};
    workbench::SessionKeeper keeper{client};
    workbench::CCurProjectMgr currentProject;
    workbench::ProgressDialog progress;
    workbench::CFileUploadMgr uploader{client, currentProject, progress, std::chrono::seconds(30)};
    workbench::CFileDownloadMgr downloader{client, currentProject, progress, std::chrono::seconds(30)};
    QTemporaryDir folder;
    int renewals = 0;
};

[[maybe_unused]] qint64 memoryMiB() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        qint64 kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

TEST_F(TransferTest, AnUploadArrivesAsItIsWithoutBeingHeldInMemory) {
    const QString path = fileOf(64 * kMiB + 12345);
    [[maybe_unused]] const qint64 before = memoryMiB();
    const auto result = upload(path);
#if !defined(__SANITIZE_ADDRESS__)  // which keeps what was freed
    EXPECT_LT(memoryMiB() - before, 16);
#endif
    EXPECT_TRUE(result.success);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(&file);
    EXPECT_EQ(result.md5, QString(hash.result().toHex()).toStdWString());
    EXPECT_EQ(result.uuid, QString(kUuid).toStdWString());
    EXPECT_EQ(result.size, 64 * kMiB + 12345);
    const Request request = uploads().at(0);
    EXPECT_EQ(request.target, "/rs/platform/files?deptId=D1&name=%E6%96%B9%E6%A1%88%201%2B%26.pdf");
    EXPECT_EQ(request.headers.at("content-type"), "application/octet-stream");
    EXPECT_EQ(request.headers.at("content-length"), std::to_string(64 * kMiB + 12345));
    EXPECT_EQ(request.headers.at("cookie"), "JSESSIONID=S1");

    EXPECT_EQ(upload(fileOf(0, "空.txt")).size, 0);
    EXPECT_EQ(uploads().size(), 2U);
    EXPECT_EQ(upload(fileOf(1, "甲\\乙.txt")).size, 1) << "a name like any other here";
    EXPECT_EQ(upload(fileOf(2).replace('/', '\\')).size, 2);
}

TEST_F(TransferTest, WhatTheServiceRefusesIsToldInItsWords) {
    const QString path = fileOf(8 * kMiB);
    const std::tuple<const char*, Reply, bool> cases[] = {
        {"部门的存储空间已用完", refusal(200, 409, "部门的存储空间已用完"), true},
        {"文件类型不允许上传", refusal(200, 422, "文件类型不允许上传"), false},
        {"服务器存储空间不足", refusal(507, 507, "服务器存储空间不足"), true},
        {"无法识别", {200, "<html>", "text/html"}, false},
        {"连接中断", {200, stored("x", 1).body, "application/json", {}, 0, Fault::HalfBody}, false},
        {"校验失败", support::result("{}"), false},
        {"校验失败", support::result(R"({"uuid":7,"md5":8})"), false},
    };
    for (const auto& [text, reply, isEarly] : cases) {
        SCOPED_TRACE(text);
        platform.server.setHandler([&reply = reply](const Request&) { return reply; });
        if (isEarly)
            platform.server.setEarlyHandler([&reply = reply](const Request&) { return reply; });
        const std::string message = failureOf(path);
        EXPECT_NE(message.find(text), std::string::npos) << message;
        if (isEarly) {
            EXPECT_LT(uploads().back().received, 8 * kMiB) << "the rest is not sent in vain";
        }
        platform.server.setEarlyHandler({});
    }
}

TEST_F(TransferTest, AFileThatArrivedChangedIsTakenBack) {
    const QString path = fileOf(kMiB);
    for (const bool isMd5 : {true, false}) {
        platform.server.setHandler([&](const Request& request) {
            return isUpload(request) ? stored(isMd5 ? std::string(32, '0') : request.md5, request.received + !isMd5)
                                     : answer(request);
        });
        EXPECT_EQ(failureOf(path), "文件校验失败，请重新上传");
        const Request last = platform.server.requests().back();
        EXPECT_EQ(last.target, "/rs/platform/files/delete");
        EXPECT_EQ(last.body, std::string(R"({"deptId":"D1","uuid":")") + kUuid + "\"}");
    }
}

TEST_F(TransferTest, BrokenAndStandingConnectionsEnd) {
    const QString path = fileOf(16 * kMiB);
    const auto afterHalf = [](Fault fault) {
        return [fault](const Request& request) -> std::optional<Reply> {
            if (request.received < 4 * kMiB)
                return std::nullopt;
            Reply reply;
            reply.fault = fault;
            return reply;
        };
    };
    platform.server.setEarlyHandler(afterHalf(Fault::ClosesAtOnce));
    EXPECT_NE(failureOf(path).find("连接中断"), std::string::npos);
    EXPECT_EQ(uploads().size(), 1U) << "nothing is repeated by itself";
    platform.server.setEarlyHandler(afterHalf(Fault::NeverAnswers));
    EXPECT_NE(failureOf(path, 1).find("停滞"), std::string::npos);
    platform.server.setEarlyHandler({});
    platform.server.setHandler([](const Request&) { return Reply{200, "", "", {}, 0, Fault::NeverAnswers}; });
    EXPECT_NE(failureOf(path, 1).find("停滞"), std::string::npos) << "all is sent, nothing comes back";
    platform.server.stop();
    EXPECT_NE(failureOf(path).find("无法连接"), std::string::npos);
    platform.server.restart();
    platform.server.setHandler([this](const Request& request) { return answer(request); });
    EXPECT_TRUE(upload(path).success);
}

TEST_F(TransferTest, AnExpiredSessionIsRenewedOnceAndTheFileSentFromItsStart) {
    const QString path = fileOf(8 * kMiB);
    bool expires = true;
    platform.server.setEarlyHandler([&](const Request& request) -> std::optional<Reply> {
        if (!isUpload(request) || request.received < kMiB || !expires)
            return std::nullopt;
        expires = false;
        return support::sessionExpired();
    });
    EXPECT_TRUE(upload(path).success);
    ASSERT_EQ(uploads().size(), 2U);
    EXPECT_EQ(uploads()[1].received, 8 * kMiB);
    EXPECT_EQ(renewals, 1);
    platform.server.setEarlyHandler({});
    platform.server.setHandler([&](const Request& request) {
        return isUpload(request) ? support::sessionExpired() : platform.answer(request);
    });
    EXPECT_EQ(failureOf(path), "登录已失效，请重新登录");
    EXPECT_EQ(renewals, 2);
}

TEST_F(TransferTest, WhatHappensToTheFileMeanwhileIsNoticed) {
    const std::function<void(const QString&)> changes[] = {
        [](const QString& path) { QFile::resize(path, 5 * kMiB); },
        [](const QString& path) { QFile::resize(path, 65 * kMiB); },
        [](const QString& path) { QFile::remove(path); },
        [](const QString& path) {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(63 * kMiB) && file.write("other") == 5);
        },
        [](const QString& path) {
            EXPECT_TRUE(QFile::rename(path, path + ".old") && QFile::copy(path + ".old", path));
        },
    };
    for (const auto& change : changes) {
        const QString path = fileOf(64 * kMiB);                // more than all the buffers on the way hold
        const auto isChanged = std::make_shared<bool>(false);  // the server may still read when the upload has failed
        platform.server.setEarlyHandler([change, path, isChanged](const Request& request) -> std::optional<Reply> {
            if (request.received > kMiB && !std::exchange(*isChanged, true))
                change(path);
            return std::nullopt;
        });
        EXPECT_EQ(failureOf(path), "文件在上传过程中发生了变化，请重新上传") << &change - changes;
        QFile::remove(path + ".old");
    }
    EXPECT_TRUE(uploads().empty()) << "the service has seen no whole file";
}

TEST_F(TransferTest, WhatCannotBeUploadedSaysWhy) {
    EXPECT_EQ(failureOf(folder.filePath("none.pdf")), "文件不存在或已被移走");
    EXPECT_EQ(failureOf(folder.path()), "所选的不是普通文件");
    const QString path = fileOf(10);
    QFile::setPermissions(path, QFile::Permissions());
    if (!QFile(path).open(QIODevice::ReadOnly)) {  // to root everything is readable
        EXPECT_EQ(failureOf(path), "无法读取文件，请检查权限");
    }
    QFile large(folder.filePath("large.mp4"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize((qint64(1) << 31)));
    EXPECT_EQ(failureOf(large.fileName()), "文件过大，无法上传");
    currentProject.close();
    EXPECT_EQ(failureOf(path), "请先打开工程");
    EXPECT_TRUE(uploads().empty());
}

TEST_F(TransferTest, TheProgressDialogShowsHowFarItIsAndCancels) {
    const QString path = fileOf(16 * kMiB);
    std::wstring second;
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) { QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton); },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { EXPECT_FALSE(dialog.close()) << "closing it is a wish, too"; },
    };
    for (const auto& cancel : ways) {
        bool asked = false;
        platform.server.setEarlyHandler([&](const Request& request) -> std::optional<Reply> {
            if (request.received < 2 * kMiB || std::exchange(asked, true))
                return std::nullopt;
            onUiThread([&] {
                auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                ASSERT_NE(dialog, nullptr);
                EXPECT_TRUE(uploader.IsUploading());
                BASEPACKAGE::UploadResult result;
                uploader.Upload({}, result, nullptr, 0);
                second = result.message;
                EXPECT_GT(dialog->findChild<QProgressBar*>()->value(), 0);
                EXPECT_GT(dialog->findChild<QProgressBar*>()->maximum(), 0);
                cancel(*dialog);
            });
            Reply stuck;
            stuck.fault = Fault::NeverAnswers;
            return stuck;
        });
        EXPECT_EQ(failureOf(path), "已取消");
        EXPECT_EQ(second, L"正在上传另一个文件，请稍后再试");
    }
    platform.server.setEarlyHandler({});
    const BIMScrollBar::ProgressScope scope(L"处理状态", L"正在上传资料，请稍后...");
    BASEPACKAGE::UploadRequest request;
    request.path = path.toStdWString();
    BASEPACKAGE::UploadResult result;
    uploader.Upload(request, result, nullptr, 0);
    const auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr) << "who has shown it closes it";
    EXPECT_FALSE(dialog->findChild<QPushButton*>()->isVisible());
}

TEST_F(TransferTest, ADownloadStandsWholeInItsPlaceOrNotAtAll) {
    const std::string content(3 * kMiB, 'x');
    const std::string md5 =
        QCryptographicHash::hash(QByteArray::fromStdString(content), QCryptographicHash::Md5).toHex().toStdString();
    const auto file = [&](const std::string& etag, Fault fault = Fault::None) {
        return Reply{200, content, "application/octet-stream", {"ETag: \"" + etag + "\""}, 0, fault};
    };
    std::wstring message;
    BASEPACKAGE::DownloadRequest request;
    request.fileKey = L"../a b";
    const auto download = [&](const QString& path) {
        request.path = path.toStdWString();
        message = L"?";
        return downloader.Download(request, message);
    };
    const QString old = fileOf(3, "旧.pdf");
    const auto entries = [&] {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    };
    const std::pair<const char*, Reply> failures[] = {
        {"校验失败", file(std::string(32, '0'))},
        {"连接中断", file(md5, Fault::HalfBody)},
        {"连接中断", {200, "x", "application/octet-stream", {}, 0, Fault::HalfBody}},  // none of it
        {"文件不存在", refusal(200, 404, "文件不存在")},
        {"500", {500, "", ""}},
        {"无法连接", {200, "", "", {}, 0, Fault::ClosesAtOnce}},
    };
    for (const auto& [text, reply] : failures) {
        SCOPED_TRACE(text);
        platform.server.setHandler([&reply = reply](const Request&) { return reply; });
        for (const QString& path : {old, folder.filePath("新/甲/乙.pdf")}) {
            EXPECT_FALSE(download(path));
            EXPECT_NE(QString::fromStdWString(message).indexOf(text), -1)
                << QString::fromStdWString(message).toStdString();
        }
        EXPECT_EQ(entries(), QStringList{"旧.pdf"});
        EXPECT_EQ(QFileInfo(old).size(), 3);
    }
    platform.server.setHandler([&](const Request&) {
        onUiThread([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        return Reply{200, content, "application/octet-stream", {}, 60000};
    });
    EXPECT_FALSE(download(folder.filePath("新/甲/乙.pdf")));
    EXPECT_EQ(message, L"已取消");
    EXPECT_EQ(entries(), QStringList{"旧.pdf"});
    platform.server.setHandler([&](const Request&) { return file(md5); });
    EXPECT_FALSE(download(folder.path()));
    EXPECT_NE(message.find(L"无法写入文件"), std::wstring::npos);
    EXPECT_EQ(entries(), QStringList{"旧.pdf"});
    for (const QString& path : {old, folder.filePath("新/甲/乙.pdf")}) {
        EXPECT_TRUE(download(path));
        EXPECT_EQ(message, L"");
        EXPECT_EQ(QFileInfo(path).size(), 3 * kMiB);
    }
    EXPECT_EQ(platform.server.requests().back().target, "/rs/platform/files/..%2Fa%20b?deptId=D1");
    currentProject.close();
    EXPECT_FALSE(download(old));
    request.deptId = L"D2";
    EXPECT_TRUE(download(old));
    EXPECT_EQ(platform.server.requests().back().target, "/rs/platform/files/..%2Fa%20b?deptId=D2");
}

}  // namespace
