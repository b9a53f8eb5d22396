#pragma once

#include <cstddef>
#include <memory>

class QString;

namespace workbench {

/// A text file that starts afresh when it has grown to a size, keeping some older ones beside it.
class RotatingFile {
public:
    RotatingFile(const QString& path, std::size_t maxBytes, std::size_t olderFiles);
    ~RotatingFile();

    /// Writes one line through to the disk's cache; false when it could not. May be called from any thread.
    bool write(const QString& line);

private:
    struct Sink;
    std::unique_ptr<Sink> m_sink;  // null when the file cannot be opened
};

}  // namespace workbench
