#pragma once

#include <vector>

#include "sdk/packages/disclosure/Records.h"
#include "ui/common/SelectionTreeModel.h"
#include "ui/common/TreeNode.h"

/// A row of a task's links: a linked viewport or rebar node, or a row that groups them.
class CBimTreeNode : public TreeNode {
    Q_OBJECT
    Q_PROPERTY(int nodeType READ nodeType CONSTANT)
    Q_PROPERTY(QString nodeName MEMBER m_name CONSTANT)
    Q_PROPERTY(int projType MEMBER m_projType CONSTANT)
    Q_PROPERTY(bool canSelect READ canSelect CONSTANT)

public:
    static constexpr int kNoProject = -1;

    /// A grouping row; `projType` is `kNoProject` unless it stands for a project.
    CBimTreeNode(TreeNode* parentNode, const QString& name, int projType = kNoProject);
    CBimTreeNode(TreeNode* parentNode, const DISCLOSUREPACKAGE::LinkRecord& link);

    /// 0 a grouping row, 1 a viewport, 2 a rebar node.
    int nodeType() const { return m_nodeType; }
    bool canSelect() const { return m_nodeType != 0; }
    /// Empty for a grouping row.
    const DISCLOSUREPACKAGE::LinkRecord& link() const { return m_link; }

private:
    DISCLOSUREPACKAGE::LinkRecord m_link;
    QString m_name;
    int m_projType = kNoProject;
    int m_nodeType = 0;
};

/// A task's links by project and kind.
class CBimTreeModel : public SelectionTreeModel {
    Q_OBJECT

public:
    using Links = std::vector<DISCLOSUREPACKAGE::LinkRecord>;

    explicit CBimTreeModel(QObject* parent = nullptr);

    /// The links of a task, its viewports first.
    static Links linksOf(const DISCLOSUREPACKAGE::TaskRecord& task);
    /// Replaces the tree; projects come in the order of their first links. No links leave it empty.
    void build(const Links& links);
};
