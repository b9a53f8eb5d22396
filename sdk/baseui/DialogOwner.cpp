#include "sdk/baseui/DialogOwner.h"

#include <QApplication>

namespace BASEUI {

QWidget* DialogOwner(QWidget* named) {
    if (named)
        return named;
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

}  // namespace BASEUI
