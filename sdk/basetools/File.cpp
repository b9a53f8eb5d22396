#include "sdk/basetools/File.h"

#include <QFileInfo>

namespace BASETOOLS {
namespace {

QFileInfo Info(const std::wstring& path) {
    QString text = QString::fromStdWString(path);
    if (const QFileInfo info(text); info.exists())
        return info;
    return QFileInfo(text.replace('\\', '/'));
}

}  // namespace

std::wstring GetFileName(const std::wstring& path) {
    return Info(path).fileName().toStdWString();
}

std::wstring GetFileExtion(const std::wstring& path) {
    return Info(path).suffix().toStdWString();
}

int64_t GetFileSize(const std::wstring& path) {
    const QFileInfo info = Info(path);
    return info.isFile() ? info.size() : -1;
}

}  // namespace BASETOOLS
