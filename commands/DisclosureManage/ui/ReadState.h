#pragma once

#include <QObject>
#include <QString>

/// How far the reading of what a list or a tree shows is.
class ReadState : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool unread READ isUnread NOTIFY changed)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool failed READ isFailed NOTIFY changed)
    Q_PROPERTY(bool none READ isNone NOTIFY changed)
    Q_PROPERTY(bool covers READ covers NOTIFY changed)
    Q_PROPERTY(bool excluded READ isExcluded NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    using QObject::QObject;

    bool isUnread() const { return m_stage == Stage::Unread; }
    bool isLoading() const { return m_stage == Stage::Loading; }
    bool isFailed() const { return m_stage == Stage::Failed; }
    bool isNone() const { return m_stage == Stage::None; }
    /// Nothing that could be shown lies below: the state takes its place.
    bool covers() const { return m_covers; }
    /// There is none only because of what was searched for.
    bool isExcluded() const { return m_isExcluded; }
    /// What the user is told.
    const QString& text() const { return m_text; }

    /// Nothing is wanted.
    void reset() { set(Stage::Unread, true, {}); }
    void begin(bool covers) { set(Stage::Loading, covers, tr("正在读取…")); }
    void succeed() { set(Stage::There, false, {}); }
    void findNone(const QString& text, bool isExcluded) { set(Stage::None, true, text, isExcluded); }
    void fail(const QString& reason, bool covers) { set(Stage::Failed, covers, tr("未能读取：%1").arg(reason)); }

signals:
    void changed();

private:
    enum class Stage { Unread, Loading, There, None, Failed };

    void set(Stage stage, bool covers, const QString& text, bool isExcluded = false) {
        m_stage = stage;
        m_covers = covers;
        m_text = text;
        m_isExcluded = isExcluded;
        emit changed();
    }

    Stage m_stage = Stage::Unread;
    bool m_covers = true;
    bool m_isExcluded = false;
    QString m_text;
};
