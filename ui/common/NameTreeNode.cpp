#include "ui/common/NameTreeNode.h"

NameTreeNode::NameTreeNode(TreeNode* parentNode, const QString& name, const QString& id, const QString& realName)
    : TreeNode(parentNode), m_nodeName(name), m_realName(realName), m_id(id) {}

void NameTreeNode::setNodeName(const QString& name) {
    if (name == m_nodeName)
        return;
    m_nodeName = name;
    emit nodeNameChanged();
}

void NameTreeNode::setRealName(const QString& name) {
    if (name == m_realName)
        return;
    m_realName = name;
    emit realNameChanged();
}
