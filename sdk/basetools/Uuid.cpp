#include "sdk/basetools/Uuid.h"

#include <QUuid>

namespace BASETOOLS {

std::wstring GenerateUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdWString();
}

}  // namespace BASETOOLS
