#include "sdk/basetools/File.h"

#include <QFileInfo>

namespace BASETOOLS {
namespace {

QFileInfo Info(const std::wstring& path) {
    return QFileInfo(QString::fromStdWString(path).replace('\\', '/'));
}

}  // namespace

std::wstring GetFileExtion(const std::wstring& path) {
    return Info(path).suffix().toStdWString();
}

int64_t GetFileSize(const std::wstring& path) {
    const QFileInfo info = Info(path);
    return info.isFile() ? info.size() : -1;
}

}  // namespace BASETOOLS
