#pragma once

#include <QObject>
#include <QVector>

#include "ui/common/ObservableCollection.h"

/// One choice of a filter.
class FileTypeModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)

public:
    FileTypeModel(const QString& name, const QString& identifier, QObject* parent)
        : QObject(parent), m_name(name), m_identifier(identifier) {}

    const QString& name() const { return m_name; }
    const QString& identifier() const { return m_identifier; }

private:
    const QString m_name;
    const QString m_identifier;
};

Q_DECLARE_METATYPE(ObservableCollection<FileTypeModel*>*)  // a template has no meta-object that would declare it

/// A filter with its choices, of which one is chosen as soon as there are any.
class DocumentFilter {
public:
    struct Choice {
        QString name;
        QString identifier;
    };

    ObservableCollection<FileTypeModel*>* choices() { return &m_choices; }
    /// Null without any.
    FileTypeModel* chosen() const { return m_chosen; }
    /// What the chosen one stands for; empty without one.
    QString identifier() const { return m_chosen ? m_chosen->identifier() : QString(); }
    /// False, and nothing changed, for the chosen one and for what is none of the choices.
    bool choose(FileTypeModel* choice) {
        if (choice == m_chosen || !m_choices.contains(choice))
            return false;
        m_chosen = choice;
        return true;
    }
    /// Back to the first choice; false when it was chosen already.
    bool reset() { return choose(m_choices.front()); }
    /// Replaces the choices. What was chosen stays so where it still is one, otherwise it is the first.
    void fill(const QVector<Choice>& choices) {
        const QString before = identifier();
        m_chosen = nullptr;
        m_choices.destoryQObjectItems();
        for (const Choice& choice : choices) {
            auto* item = new FileTypeModel(choice.name, choice.identifier, &m_choices);
            m_choices.push_back(item);
            if (!m_chosen || choice.identifier == before)
                m_chosen = item;
        }
    }

private:
    ObservableCollection<FileTypeModel*> m_choices;
    FileTypeModel* m_chosen = nullptr;
};
