#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/Walks.h"
#include "tests/support/QuickPilot.h"

using namespace screen;

namespace {

const QString kNew = QStringLiteral("冬季施工专项");
const QString kRenamed = QStringLiteral("雨季施工专项");

QString shown(const QString& name) {
    return name + "(0)";  // a new folder holds no tasks
}

}  // namespace

void walkCatalogs(QQuickView* view, ServiceProbe& service) {
    const QString top = service.catalogId(QStringLiteral("全部"));
    const auto position = [&] { return service.children(top).indexOf(kRenamed); };

    selectCatalog(view, QStringLiteral("全部"));
    press(view, Pane::Catalogs, QStringLiteral("新建"));
    expectText(view, QStringLiteral("文件夹新建"));
    picture("folder-new");
    support::retype(view, kNew);
    clickText(view, QStringLiteral("确定"));
    expect(service.children(top).last() == kNew, "the service has the new folder as the last child");
    expectText(view, shown(kNew));

    selectCatalog(view, shown(kNew));
    press(view, Pane::Catalogs, QStringLiteral("重命名"));
    expectText(view, QStringLiteral("文件夹重命名"));
    support::retype(view, kRenamed);
    clickText(view, QStringLiteral("确定"));
    expect(service.children(top).last() == kRenamed, "the service has the new name");
    expectText(view, shown(kRenamed));

    const int before = position();
    press(view, Pane::Catalogs, QStringLiteral("上移"));
    expect(position() == before - 1, "the service moved the folder up by one place");
    picture("folder-moved");

    answering("folder-delete", QStringLiteral("删除后，此目录下的交底任务无法恢复，是否确定删除？"),
              [&] { press(view, Pane::Catalogs, QStringLiteral("删除")); });
    expect(position() < 0, "the service deleted the folder");
    expect(!support::findByText(view, shown(kRenamed)), "the tree dropped the folder");
    picture("folder-deleted");
}
