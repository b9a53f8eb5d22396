#pragma once

#include <QString>

#include "ui/common/CheckBoxTreeNode.h"

/// A node of a tree of named items that can be checked.
class NameCheckBoxTreeNode : public CheckBoxTreeNode {
    Q_OBJECT
    Q_PROPERTY(QString nodeName READ nodeName WRITE setNodeName NOTIFY nodeNameChanged)
    Q_PROPERTY(QString realName READ realName WRITE setRealName NOTIFY realNameChanged)

public:
    explicit NameCheckBoxTreeNode(TreeNode* parentNode = nullptr, const QString& name = {}, const QString& id = {},
                                  const QString& realName = {});

    QString nodeName() const { return m_nodeName; }
    void setNodeName(const QString& name);
    QString realName() const { return m_realName; }
    void setRealName(const QString& name);
    QString id() const { return m_id; }

signals:
    void nodeNameChanged();
    void realNameChanged();

private:
    QString m_nodeName;
    QString m_realName;
    QString m_id;
};
