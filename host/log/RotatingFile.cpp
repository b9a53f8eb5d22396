#include "host/log/RotatingFile.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <QFile>
#include <QString>

namespace workbench {

struct RotatingFile::Sink {
    Sink(const QString& path, std::size_t maxBytes, std::size_t olderFiles)
        : file(QFile::encodeName(path).toStdString(), maxBytes, olderFiles) {
        file.set_formatter(std::make_unique<spdlog::pattern_formatter>("%v"));
    }
    spdlog::sinks::rotating_file_sink_mt file;
};

RotatingFile::RotatingFile(const QString& path, std::size_t maxBytes, std::size_t olderFiles) {
    try {
        m_sink = std::make_unique<Sink>(path, maxBytes, olderFiles);
    } catch (const spdlog::spdlog_ex&) {
        // Every write says so.
    }
}

RotatingFile::~RotatingFile() = default;

bool RotatingFile::write(const QString& line) {
    if (!m_sink)
        return false;
    try {
        const std::string text = line.toStdString();
        m_sink->file.log(spdlog::details::log_msg("", spdlog::level::info, text));
        m_sink->file.flush();
        return true;
    } catch (const spdlog::spdlog_ex&) {
        return false;
    }
}

}  // namespace workbench
