#pragma once

#include <QByteArray>
#include <QString>

namespace workbench {

/// How a document is shown.
enum class DocumentKind {
    Text,
    Picture,
    Pdf,
    Outside,  // by the system's program
    Unknown   // it can only be saved
};

/// By the extension of the name.
DocumentKind documentKind(const QString& name);

/// The name's extension where it is one that a program of the system may open by, else "bin".
QString safeExtension(const QString& name);

/// The name as one that every file system takes, without a path.
QString safeFileName(const QString& name);

/// Whether a file that begins so is a program, whatever it is called.
bool isProgram(const QByteArray& beginning);

}  // namespace workbench
