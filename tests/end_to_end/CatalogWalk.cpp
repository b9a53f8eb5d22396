#include "tests/end_to_end/Walks.h"

using namespace screen;

void walkCatalogs(View& view, ServiceProbe& service) {
    const QString created = "冬季施工专项";
    const QString renamed = "雨季施工专项";
    const QString top = service.catalogId("全部");
    const auto position = [&] { return service.children(top).indexOf(renamed); };

    view.selectCatalog("全部");
    view.press(Pane::Catalogs, "新建");
    view.expectText("文件夹新建");
    picture("folder-new");
    view.retype(created);
    view.clickText("确定");
    expect(service.children(top).last() == created, "the service has the new folder as the last child");

    view.selectCatalog(created + "(0)");  // a new folder holds no tasks
    view.press(Pane::Catalogs, "重命名");
    view.expectText("文件夹重命名");
    view.retype(renamed);
    view.clickText("确定");
    expect(service.children(top).last() == renamed, "the service has the new name");
    view.expectText(renamed + "(0)");

    const int before = position();
    view.press(Pane::Catalogs, "上移");
    expect(position() == before - 1, "the service moved the folder up by one place");
    picture("folder-moved");

    answering("folder-delete", "删除后，此目录下的交底任务无法恢复，是否确定删除？",
              [&] { view.press(Pane::Catalogs, "删除"); });
    expect(position() < 0, "the service deleted the folder");
    expect(!view.text(renamed + "(0)"), "the tree dropped the folder");
    picture("folder-deleted");
}
