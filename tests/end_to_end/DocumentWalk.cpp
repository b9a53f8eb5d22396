#include <QAbstractItemView>
#include <QPointer>
#include <QQmlContext>

#include "tests/end_to_end/Walks.h"

using namespace screen;

namespace {

const QString kTitle = "关联资料";

/// Of the picker, which has the keyboard.
QObject* model() {
    const auto* view = qobject_cast<QQuickView*>(QGuiApplication::focusWindow());
    return view ? view->rootContext()->contextProperty("connectDocMode").value<QObject*>() : nullptr;
}

/// Does what leads to another page of documents and waits for that.
void turning(const std::function<void()>& turn) {
    const auto page = [picker = model()] { return picker->property("fileListModel").value<QObject*>(); };
    const QPointer<QObject> before = page();
    turn();
    expectSoon([&] { return page() && page() != before; }, "the picker shows other documents");
}

/// Checks the row of that number, from the top.
void check(View& picker, int row) {
    const QString number = QString::number(row + 1);
    const int before = model()->property("allSelect").toInt();
    const auto isNumber = [&](QQuickItem* item) {
        return item->property("text") == number && item->property("toolTipText").isValid();
    };
    picker.click(picker.find(isNumber)).key(Qt::Key_Space);
    expect(model()->property("allSelect").toInt() == before + 1, "the space bar checks the row");
}

/// Checks over two pages, a folder and a search; tells how many documents are checked then.
int choose(View& picker) {
    if (!model()->property("fileListModel").value<QObject*>())
        turning([] {});
    check(picker, 1);
    turning([&] { picker.click(picker.find("objectName", "next")); });
    check(picker, 3);
    picture("document-picker");
    turning([&] { picker.clickText("图纸"); });
    turning([&] { picker.search("请输入资料名称关键字", "没有这个").key(Qt::Key_Return); });
    picker.expectText("没有符合条件的资料");
    picture("document-picker-none");
    turning([&] { picker.clickText("清除条件"); });
    return model()->property("allSelect").toInt();
}

/// Shows the first PDF of the list, and closes its window.
void show(View& editor) {
    QQuickItem* row = editor.find([](QQuickItem* item) {
        return item->property("name").toString().endsWith(".pdf") && item->property("viewable").toBool();
    });
    expect(row != nullptr, "a PDF is linked");
    const QString name = row->property("name").toString();
    editor.click(support::findItem(row, support::has("tooltipText", "查看")));
    QWidget* window = nullptr;
    const auto find = [&] {
        window = findWidget([&](QWidget* widget) { return widget->isWindow() && widget->windowTitle() == name; });
        return window && window->windowHandle()->isExposed();
    };
    expectSoon(find, "the document is shown: " + name);
    QTest::qWait(500);  // its page is drawn by a thread
    picture("document-pdf");
    window->close();
}

}  // namespace

void walkDocuments(View& view, ServiceProbe& service) {
    view.selectCatalog("全部");
    view.expectText(QString("共计%1条数据").arg(service.count("全部")));  // and not the rows of before
    QQuickItem* cell = view.cell([](QQuickItem* item) {
        const QObject* task = View::taskOf(item);
        return !task->property("released").toBool() && item->property("text") == task->property("relFiles") &&
               task->property("relFiles").toString().contains(".pdf");
    });
    const QString id = View::taskOf(cell)->property("id").toString();
    int chosen = 0;
    inDialog(
        kTitle, [&] { view.doubleClick(cell); },
        [&](View& editor) {
            inDialog(
                kTitle, [&] { editor.clickText("关联资料库"); },
                [&](View& picker) {
                    chosen = choose(picker);
                    picker.clickText("确定");
                });
            show(editor);
            picture("link-editor");
            editor.clickText("确定");
        });
    int stored = 0;
    const QJsonArray docs = service.task(id).value("disclosureTaskDocList").toArray();
    for (const QJsonValue& doc : docs)
        stored += doc.toObject().value("refDocId").toString().isEmpty() ? 0 : 1;
    expect(chosen >= 2 && stored == chosen, "the service has the documents that were checked");
}

void walkDocumentPage() {
    const auto press = [] {
        QWidget* window = screen::findWidget([](QWidget* widget) { return widget->inherits("QMainWindow"); });
        QTest::keyClick(window, Qt::Key_D, Qt::ControlModifier);
    };
    const auto isFilled = [](QWidget* widget) {
        const auto* table = qobject_cast<QAbstractItemView*>(widget);
        return table && table->objectName() == "documents" && table->model()->rowCount() > 0;
    };
    press();
    expectSoon([&] { return findWidget(isFilled) != nullptr; }, "the page lists the documents");
    picture("document-page");
    press();
    expectSoon([&] { return findWidget(isFilled) == nullptr; }, "the page goes again");
}
