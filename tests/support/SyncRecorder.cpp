// Preloaded into a program, notes what it does to files and what it sends, one line each in the file that SYNC_RECORD
// names: thread, what, path (and where a rename leads), with tabs between. A write or an answer is noted before it
// happens, a sync, a rename or a removal once it has succeeded; so a thread's lines stand in the order that a cut in
// the power would find.
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

void note(const char* what, const std::string& path, const char* to = nullptr) {
    static const long record = [] {
        const char* file = std::getenv("SYNC_RECORD");
        return file ? ::syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
    }();
    std::string line = std::to_string(::syscall(SYS_gettid)) + "\t" + what + "\t" + path;
    if (to)
        line += std::string("\t") + to;
    line += '\n';
    ::syscall(SYS_write, record, line.data(), line.size());
}

std::string pathOf(int descriptor) {
    char path[4096];
    const auto length = ::readlink(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), path, sizeof path);
    return {path, length < 0 ? 0 : static_cast<std::size_t>(length)};
}

/// The function of this name behind ours.
template <class Function>
Function behind(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// Each hands on to the real one.
#define BEFORE(result, name, parameters, arguments, what)                      \
    extern "C" __attribute__((visibility("default"))) result name parameters { \
        static const auto real = behind<result(*) parameters>(#name);          \
        note(what, pathOf(descriptor));                                        \
        return real arguments;                                                 \
    }
#define AFTER(name, parameters, arguments, what, ...)                       \
    extern "C" __attribute__((visibility("default"))) int name parameters { \
        static const auto real = behind<int(*) parameters>(#name);          \
        const int result = real arguments;                                  \
        if (result == 0)                                                    \
            note(what, __VA_ARGS__);                                        \
        return result;                                                      \
    }

BEFORE(ssize_t, write, (int descriptor, const void* data, size_t size), (descriptor, data, size), "write")
BEFORE(ssize_t, writev, (int descriptor, const iovec* parts, int count), (descriptor, parts, count), "write")
BEFORE(ssize_t, pwrite, (int descriptor, const void* data, size_t size, off_t at), (descriptor, data, size, at),
       "write")
BEFORE(ssize_t, pwrite64, (int descriptor, const void* data, size_t size, off64_t at), (descriptor, data, size, at),
       "write")
BEFORE(ssize_t, send, (int descriptor, const void* data, size_t size, int flags), (descriptor, data, size, flags),
       "send")
BEFORE(ssize_t, sendmsg, (int descriptor, const msghdr* message, int flags), (descriptor, message, flags), "send")
AFTER(fsync, (int descriptor), (descriptor), "sync", pathOf(descriptor))
AFTER(fdatasync, (int descriptor), (descriptor), "sync", pathOf(descriptor))
AFTER(rename, (const char* from, const char* to), (from, to), "rename", from, to)
AFTER(unlink, (const char* path), (path), "unlink", path)
