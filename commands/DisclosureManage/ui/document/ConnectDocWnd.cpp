#include "commands/DisclosureManage/ui/document/ConnectDocWnd.h"

#include "commands/DisclosureManage/ui/DisclosureManager.h"
#include "commands/DisclosureManage/ui/document/ConnectDocModel.h"

bool CConnectDocWnd::choose(DocumentLinks& docs) {
    if (!FindDisclosureManager())
        return false;
    CConnectDocModel model(docs);
    CConnectDocWnd(model).frame().run();
    if (model.isAccepted())
        ReplaceStoreDocuments(docs, model.checked());
    return model.isAccepted();
}

CConnectDocWnd::CConnectDocWnd(CConnectDocModel& model) {
    load("selectDocument.qml", "connectDocMode", &model, {980, 640}, "document");
}
