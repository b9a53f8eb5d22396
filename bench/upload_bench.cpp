// A file of 500 MiB through the workbench's upload manager, dialog included, against curl, both to the same running
// service, and how much memory it takes on either side.
#include <iostream>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>

#include "bench/Report.h"
#include "bench/Served.h"
#include "host/managers/CurProjectMgr.h"
#include "host/managers/FileUploadMgr.h"
#include "host/platform/PlatformData.h"
#include "host/platform/SessionKeeper.h"

namespace {

constexpr qint64 kMiB = 1024LL * 1024;
constexpr qint64 kSize = 500 * kMiB;
constexpr std::uintmax_t kDisk = 4 * kSize;
constexpr int kRuns = 5;

QString made(const QString& path) {
    QFile file(path);
    QByteArray block(kMiB, ' ');
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + path.toStdString());
    for (qint64 i = 0; i < kSize / kMiB; ++i) {
        block.replace(0, 8, QByteArray::number(i + 10000000));
        file.write(block);
    }
    return path;
}

class Subject {
public:
    Subject(const bench::Served& served, const QString& file) : m_file(file) {
        const QString address = QString("127.0.0.1:%1").arg(served.port());
        m_keeper.logIn(address, "demo", "demo");
        const auto projects = workbench::PlatformData(m_client).projects();
        if (!projects || projects->empty())
            throw std::runtime_error("the service has no project");
        m_project.open(projects->front());
        m_url = "http://" + address + "/rs/platform/files?name=bench.mp4&deptId=" + deptId();
    }

    double ours() {
        BASEPACKAGE::UploadRequest request;
        request.path = m_file.toStdWString();
        BASEPACKAGE::UploadResult result;
        QElapsedTimer timer;
        timer.start();
        m_uploader.Upload(request, result, nullptr, 0);
        const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
        if (!result.success)
            throw std::runtime_error(QString::fromStdWString(result.message).toStdString());
        takeBack(QString::fromStdWString(result.uuid));
        return seconds;
    }

    double peer() {
        QProcess curl;
        QElapsedTimer timer;
        timer.start();
        curl.start("curl",
                   {"-sS", "-X", "POST", "-T", m_file, "-H", "Expect:", "-H", "Content-Type: application/octet-stream",
                    "-b", "JSESSIONID=" + QString::fromStdString(m_keeper.session()->id()), m_url});
        curl.waitForFinished(-1);
        const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
        const QByteArray answer = curl.readAllStandardOutput();
        const QString uuid =
            QJsonDocument::fromJson(answer).object().value("result").toObject().value("uuid").toString();
        if (uuid.isEmpty())
            throw std::runtime_error("curl: " + answer.toStdString() + curl.readAllStandardError().toStdString());
        takeBack(uuid);
        return seconds;
    }

private:
    QString deptId() const { return QString::fromStdWString(m_project.GetCurDeptId()); }
    void takeBack(const QString& uuid) {
        m_client.post("/rs/platform/files/delete", {{"deptId", deptId()}, {"uuid", uuid}});
    }

    QString m_file;
    QString m_url;
    workbench::PlatformClient m_client;
    workbench::SessionKeeper m_keeper{m_client};
    workbench::CCurProjectMgr m_project;
    workbench::ProgressDialog m_progress;
    workbench::CFileUploadMgr m_uploader{m_client, m_project, m_progress};
};

void printGrowth(const char* side, pid_t pid, double before) {
    constexpr double kMost = 32;
    const double grown = bench::memory(pid, "VmHWM:") - before;
    std::printf("memory that uploads of 500 MiB add to %s | %.1f MB | %.1f MB | %.2f | <= 1.00\n", side, grown, kMost,
                grown / kMost);
}

void run() {
    const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    if (std::filesystem::space(build).available < kDisk)
        throw std::runtime_error("needs 2 GB of disk");
    const QTemporaryDir folder(QString::fromStdString((build / "upload-XXXXXX").string()));
    const std::string database = folder.filePath("service.db").toStdString();
    ::waitpid(bench::start("disclosure-service", {"seed", "--demo", "--database", "sqlite:" + database}), nullptr, 0);
    const bench::Served served(database);
    Subject subject(served, made(folder.filePath("bench.mp4")));
    const double ours = bench::restartPeak(::getpid());
    const double service = bench::restartPeak(served.pid());
    bench::Row(
        "upload of 500 MiB / curl to the same service", 1.3, [&] { return subject.ours(); },
        [&] { return subject.peer(); }, kRuns);
    printGrowth("the workbench", ::getpid(), ours);
    printGrowth("the service", served.pid(), service);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    try {
        run();
        return 0;
    } catch (const std::exception& e) {
        std::cerr << "upload_bench: " << e.what() << '\n';
        return 1;
    }
}
