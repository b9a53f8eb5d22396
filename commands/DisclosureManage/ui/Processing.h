#pragma once

#include <QCoreApplication>

#include "sdk/baseui/ProgressDialog.h"

/// Shows the progress dialog, with the words that every longer change has, for the life of the object.
class Processing : public BIMScrollBar::ProgressScope {
    Q_DECLARE_TR_FUNCTIONS(Processing)

public:
    Processing() : ProgressScope(tr("处理状态").toStdWString(), tr("处理中，请稍后...").toStdWString()) {}
};
