#include "ui/common/NameCheckBoxTreeNode.h"

NameCheckBoxTreeNode::NameCheckBoxTreeNode(TreeNode* parentNode, const QString& name, const QString& id,
                                           const QString& realName)
    : CheckBoxTreeNode(parentNode), m_nodeName(name), m_realName(realName), m_id(id) {}

void NameCheckBoxTreeNode::setNodeName(const QString& name) {
    if (name == m_nodeName)
        return;
    m_nodeName = name;
    emit nodeNameChanged();
}

void NameCheckBoxTreeNode::setRealName(const QString& name) {
    if (name == m_realName)
        return;
    m_realName = name;
    emit realNameChanged();
}
