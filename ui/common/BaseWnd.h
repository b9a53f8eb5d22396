#pragma once

#include "ui/common/WindowFrame.h"

/// Base of every dialog: a window frame, and the slots of its title bar. Lives on the stack or in an owner of its own
/// and outlives the dialog, so that the caller can read the outcome.
class CBaseWnd : public QObject {
    Q_OBJECT

public:
    /// `parent` is the host's main window; may be null.
    explicit CBaseWnd(QWidget* parent);
    ~CBaseWnd() override;

    WindowFrame& frame() { return m_frame; }
    const WindowFrame& frame() const { return m_frame; }

public slots:
    void slotToggleMaximized();
    void onTitlebarPressed();
    void onTitlebarPositionChanged();
    void onTitleBarDoubleClicked();

protected:
    /// Connects the root item's signals; called after loading. Overrides add theirs.
    virtual void connectRootObject();

private:
    WindowFrame m_frame;
};
