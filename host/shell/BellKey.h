#pragma once

#include <QObject>

namespace workbench {

/// Ctrl+M anywhere in the program, also while a plug-in's modal window is open, which takes every key and click from
/// the workbench's own window. It is left alone while a box of the workbench is open.
class BellKey : public QObject {
    Q_OBJECT

public:
    BellKey();

signals:
    void pressed();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace workbench
