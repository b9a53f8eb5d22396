#pragma once

#include <vector>

#include <QWidget>

#include "host/platform/DocumentStore.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace workbench {

/// What leaves out documents of a folder.
class DocumentFilters : public QWidget {
    Q_OBJECT

public:
    DocumentFilters();

    /// A choice that is still offered stays.
    void offer(const std::vector<DocumentType>& types, const std::vector<DocumentLabel>& tags);
    void reset();
    void addTo(DocumentQuery& query) const;
    /// Whether anything but the folder leaves out documents.
    bool areSet() const;
    /// Whether the deleted documents are looked at instead of those there.
    bool isTrash() const;
    void allowTrash(bool isAllowed);
    void focusSearch();

signals:
    void changed();

private:
    QLineEdit* m_search;
    QComboBox* m_type;
    QComboBox* m_tag;
    QCheckBox* m_trash;
};

}  // namespace workbench
