#pragma once

#include <utility>

#include <QMetaObject>
#include <QObject>

#ifdef __SANITIZE_THREAD__
extern "C" {
void __tsan_acquire(void* order);
void __tsan_release(void* order);
void AnnotateIgnoreReadsBegin(const char* file, int line);
void AnnotateIgnoreReadsEnd(const char* file, int line);
void AnnotateIgnoreWritesBegin(const char* file, int line);
void AnnotateIgnoreWritesEnd(const char* file, int line);
}
#endif

namespace workbench {

/// Runs the functor in the thread of the object, another one, as QMetaObject::invokeMethod does. Qt hands it over under
/// locks of its own, which the thread sanitizer does not see, so that its build has to be told.
template <class Functor>
void runIn(QObject* object, Functor functor, Qt::ConnectionType type = Qt::AutoConnection) {
#ifdef __SANITIZE_THREAD__
    static char order;
    __tsan_release(&order);
    AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
    AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    QMetaObject::invokeMethod(
        object,
        [functor = std::move(functor)] {
            __tsan_acquire(&order);
            functor();
        },
        type);
    AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
    AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
#else
    QMetaObject::invokeMethod(object, std::move(functor), type);
#endif
}

}  // namespace workbench
