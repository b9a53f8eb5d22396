#pragma once

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include "sdk/packages/disclosure/Records.h"

class PeopleNames;

/// One row of the task list. Dates are invalid, and their texts empty, when unset.
class TaskModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString id MEMBER m_id NOTIFY idChanged)
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(QString catalogid MEMBER m_catalogid NOTIFY catalogidChanged)
    Q_PROPERTY(QString owner MEMBER m_owner NOTIFY ownerChanged)
    Q_PROPERTY(QString updateperson MEMBER m_updateperson NOTIFY updatepersonChanged)
    Q_PROPERTY(QString status MEMBER m_status NOTIFY statusChanged)
    Q_PROPERTY(QString remark MEMBER m_remark NOTIFY remarkChanged)
    Q_PROPERTY(QDateTime start_date MEMBER m_startdate NOTIFY startdateChanged)
    Q_PROPERTY(QDateTime end_date MEMBER m_enddate NOTIFY enddateChanged)
    Q_PROPERTY(QDateTime plan_date MEMBER m_plandate NOTIFY plandateChanged)
    Q_PROPERTY(QDateTime real_date MEMBER m_realdate NOTIFY realdateChanged)
    Q_PROPERTY(QDateTime update_date MEMBER m_updatedate NOTIFY updatedateChanged)
    Q_PROPERTY(QDateTime dead_date MEMBER m_deaddate NOTIFY deaddateChanged)
    Q_PROPERTY(QString start_show READ start_show NOTIFY startdateChanged)
    Q_PROPERTY(QString end_show READ end_show NOTIFY enddateChanged)
    Q_PROPERTY(QString plan_show READ plan_show NOTIFY plandateChanged)
    Q_PROPERTY(QString real_show READ real_show NOTIFY realdateChanged)
    Q_PROPERTY(QString update_show READ update_show NOTIFY updatedateChanged)
    Q_PROPERTY(QString dead_show READ dead_show NOTIFY deaddateChanged)
    Q_PROPERTY(bool selected MEMBER m_selected NOTIFY selectedChagned)
    Q_PROPERTY(bool released MEMBER m_released NOTIFY releasedChanged)
    Q_PROPERTY(QString relBIMs MEMBER m_relBIMs NOTIFY relBIMsChanged)
    Q_PROPERTY(QString relFiles MEMBER m_relFiles NOTIFY relFilesChanged)
    Q_PROPERTY(QString receiver MEMBER m_receiver NOTIFY receiverChanged)
    Q_PROPERTY(QStringList ownermodel MEMBER m_ownermodel NOTIFY ownerModelChanged)
    Q_PROPERTY(QString catalog_path READ catalogPath CONSTANT)

public:
    TaskModel(const DISCLOSUREPACKAGE::TaskRecord& record, const PeopleNames& names, QObject* parent = nullptr);

    /// For the user; empty for a number that is no status.
    static QString statusText(int status);

    /// Takes over what `record` says; the check mark stays.
    void assign(const DISCLOSUREPACKAGE::TaskRecord& record, const PeopleNames& names);

    const QString& id() const { return m_id; }
    const QString& name() const { return m_name; }
    const QString& catalogid() const { return m_catalogid; }
    /// Where the task lies; empty for the catalog that is listed. Set before the row is shown.
    const QString& catalogPath() const { return m_catalogPath; }
    void setCatalogPath(const QString& path) { m_catalogPath = path; }
    const QString& owner() const { return m_owner; }
    bool released() const { return m_released; }
    bool selected() const { return m_selected; }
    void setSelected(bool selected) { set(m_selected, selected, &TaskModel::selectedChagned); }
    QString start_show() const { return shown(m_startdate); }
    QString end_show() const { return shown(m_enddate); }
    QString plan_show() const { return shown(m_plandate); }
    QString real_show() const { return shown(m_realdate); }
    QString update_show() const { return shown(m_updatedate); }
    QString dead_show() const { return shown(m_deaddate); }

signals:
    void idChanged();
    void nameChanged();
    void catalogidChanged();
    void ownerChanged();
    void receiverChanged();
    void updatepersonChanged();
    void relBIMsChanged();
    void relFilesChanged();
    void statusChanged();
    void remarkChanged();
    void startdateChanged();
    void enddateChanged();
    void plandateChanged();
    void realdateChanged();
    void updatedateChanged();
    void deaddateChanged();
    void selectedChagned();  // spelled so
    void ownerModelChanged();
    void releasedChanged();

private:
    static QString shown(const QDateTime& date);
    template <class T>
    void set(T& field, const T& value, void (TaskModel::*changed)()) {
        if (field == value)
            return;
        field = value;
        emit(this->*changed)();
    }

    QString m_id;
    QString m_name;
    QString m_catalogid;
    QString m_owner;
    QString m_updateperson;
    QString m_status;
    QString m_remark;
    QDateTime m_startdate;
    QDateTime m_enddate;
    QDateTime m_plandate;
    QDateTime m_realdate;
    QDateTime m_updatedate;
    QDateTime m_deaddate;
    bool m_selected = false;
    bool m_released = false;
    QString m_relBIMs;
    QString m_relFiles;
    QString m_receiver;
    QStringList m_ownermodel;
    QString m_catalogPath;
};
