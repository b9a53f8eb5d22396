#include "commands/DisclosureManage/ui/task/BimTreeModel.h"

#include <map>

#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/ManagerNames.h"
#include "sdk/packages/IProjectDataMgr.h"
#include "ui/common/WideText.h"

using DISCLOSUREPACKAGE::LinkRecord;

namespace {

constexpr int kViewport = 0;  // kinds of links
constexpr int kRebarNode = 1;
constexpr int kProjectTypes = 8;  // as many as there are icons

std::map<int32_t, PROJECTPACKAGE::ProjectRecord> projectsByNumber() {
    std::vector<PROJECTPACKAGE::ProjectRecord> projects;
    if (auto* manager = BASECORE::FRAME::LookupManager<PROJECTPACKAGE::IProjectDataMgr>(BASECORE::NAMES::kProjectData))
        manager->GetProjects(projects);
    std::map<int32_t, PROJECTPACKAGE::ProjectRecord> byNumber;
    for (auto& project : projects)
        byNumber.emplace(project.ppid, std::move(project));
    return byNumber;
}

}  // namespace

CBimTreeNode::CBimTreeNode(TreeNode* parentNode, const QString& name, int projType)
    : TreeNode(parentNode), m_name(name), m_projType(projType) {}

CBimTreeNode::CBimTreeNode(TreeNode* parentNode, const LinkRecord& link)
    : TreeNode(parentNode),
      m_link(link),
      m_name(FromWide(link.name.empty() ? link.identifier : link.name)),
      m_nodeType(link.kind + 1) {}

CBimTreeModel::CBimTreeModel(QObject* parent) : SelectionTreeModel(parent) {}

CBimTreeModel::Links CBimTreeModel::linksOf(const DISCLOSUREPACKAGE::TaskRecord& task) {
    Links links;
    for (const auto& viewport : task.disclosureTaskViewportList)
        links.push_back({kViewport, viewport.viewportId, viewport.viewportName, viewport.ppid});
    for (const auto& node : task.disclosureTaskNodeList)
        links.push_back({kRebarNode, node.nodeId, node.nodeName, node.ppid});
    return links;
}

void CBimTreeModel::build(const Links& links) {
    if (links.empty())
        return clear();
    const auto projects = projectsByNumber();
    auto* all = new CBimTreeNode(nullptr, tr("全部"));
    std::map<int32_t, TreeNode*> projectRows;
    std::map<std::pair<int32_t, int32_t>, TreeNode*> groups;  // by project and kind
    for (const LinkRecord& link : links) {
        TreeNode*& projectRow = projectRows[link.ppid];
        if (!projectRow) {
            const auto known = projects.find(link.ppid);
            const bool isKnown = known != projects.end();
            const int type = isKnown ? known->second.projType : 0;
            projectRow =
                new CBimTreeNode(all, isKnown ? FromWide(known->second.projName) : tr("未知项目（%1）").arg(link.ppid),
                                 type >= 0 && type < kProjectTypes ? type : 0);
        }
        TreeNode*& group = groups[{link.ppid, link.kind}];
        if (!group)
            group = new CBimTreeNode(projectRow, link.kind == kViewport ? tr("视口列表") : tr("钢筋节点"));
        new CBimTreeNode(group, link);
    }
    addNode({}, all);
}
