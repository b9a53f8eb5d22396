#pragma once

#include <QObject>

#include "sdk/packages/documents/IKpxDocFileListMgr.h"
#include "ui/common/WideText.h"

/// A document of the store as a row of the picker.
class CFileModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString docName READ docName CONSTANT)
    Q_PROPERTY(QString weaveTime READ weaveTime CONSTANT)
    Q_PROPERTY(QString updateby READ updateby CONSTANT)
    Q_PROPERTY(QString docTag READ docTag CONSTANT)
    Q_PROPERTY(bool selected READ selected WRITE setSelected NOTIFY selectedChanged)

public:
    CFileModel(const DOCUMENTPACKAGE::DocFileRecord& file, bool selected, QObject* parent)
        : QObject(parent), m_file(file), m_selected(selected) {}

    QString docName() const { return FromWide(m_file.name); }
    QString weaveTime() const { return FromWide(m_file.weaveTime); }
    QString updateby() const { return FromWide(m_file.updateBy); }
    QString docTag() const { return FromWide(m_file.tag); }
    bool selected() const { return m_selected; }
    void setSelected(bool selected) {
        if (selected == m_selected)
            return;
        m_selected = selected;
        emit selectedChanged();
    }
    const DOCUMENTPACKAGE::DocFileRecord& file() const { return m_file; }

signals:
    void selectedChanged();

private:
    const DOCUMENTPACKAGE::DocFileRecord m_file;
    bool m_selected;
};
