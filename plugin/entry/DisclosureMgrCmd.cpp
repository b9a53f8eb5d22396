#include "plugin/entry/DisclosureMgrCmd.h"

#include <QMetaType>
#include <QString>

#include "commands/DisclosureManage/DisclosureMgrProvider.h"
#include "commands/DisclosureManage/ui/document/FileTypeModel.h"
#include "commands/DisclosureManage/ui/document/FolderTreeModel.h"
#include "commands/DisclosureManage/ui/document/MapFileModel.h"
#include "commands/DisclosureManage/ui/task/AddTaskViewModel.h"
#include "commands/DisclosureManage/ui/task/CatalogTreeNode.h"
#include "commands/DisclosureManage/ui/task/MapTaskModel.h"
#include "sdk/packages/disclosure/Command.h"

namespace DISCLOSUREPACKAGE {

CDisclosureMgrCmd::CDisclosureMgrCmd() = default;
CDisclosureMgrCmd::~CDisclosureMgrCmd() = default;

std::wstring CDisclosureMgrCmd::GetName() const {
    return kCommandName;
}

void CDisclosureMgrCmd::ViewModelTypeRegistration() {
    qRegisterMetaType<CAddTaskViewModel*>("CAddTaskViewModel*");
    qRegisterMetaType<CFolderTreeModel*>("CFolderTreeModel*");
    qRegisterMetaType<ObservableCollection<FileTypeModel*>*>("ObservableCollection<FileTypeModel*>*");
    qRegisterMetaType<ObservableCollection<CFileModel*>*>("ObservableCollection<CFileModel*>*");
    qRegisterMetaType<ObservableCollection<TaskModel*>*>("ObservableCollection<TaskModel*>*");
    qRegisterMetaType<CatalogTreeNode*>("CatalogTreeNode*");
}

void CDisclosureMgrCmd::ViewRegistration() {}

bool CDisclosureMgrCmd::RunCommand() {
    if (!m_provider)
        m_provider = std::make_unique<DisclosureMgrProvider>();
    const boost::any wanted = GetParam(kParamTaskId);
    SetParam(kParamTaskId, {});
    const auto* taskId = boost::any_cast<std::wstring>(&wanted);
    m_provider->ShowMainWindow(taskId ? QString::fromStdWString(*taskId) : QString());
    return true;
}

bool CDisclosureMgrCmd::FinishCommand() {
    return true;
}

}  // namespace DISCLOSUREPACKAGE
