#include "tests/end_to_end/Editor.h"

#include <QLineEdit>
#include <QTest>

#include "tests/end_to_end/Screen.h"
#include "tests/support/QuickPilot.h"

using namespace screen;

namespace editor {
namespace {

QQuickItem* field(QQuickView* view, const QString& caption) {
    QQuickItem* item = support::findItem(view->contentItem(), [&](QQuickItem* candidate) {
        return candidate->property("name") == caption && candidate->property("mustfill").isValid() &&
               candidate->property("value").isValid();
    });
    expect(item != nullptr, "the editor has the field " + caption);
    return item;
}

QQuickItem* button(QQuickItem* within, const QString& text) {
    QQuickItem* item = support::findItem(within, [&](QQuickItem* candidate) {
        return candidate->property("text") == text && candidate->inherits("QQuickButton");
    });
    expect(item && item->isEnabled(), "there is a button " + text);
    return item;
}

/// The form scrolls to what has the keyboard.
void reach(QQuickView* view, QQuickItem* item) {
    item->forceActiveFocus();
    expectSoon(
        [&] {
            const int y = support::centreOf(item).y();
            return y > 0 && y < view->height();
        },
        "the form scrolls to what is wanted");
    support::click(item);
    QTest::qWait(50);
}

void inPicker(QQuickView* view, const QString& caption, const std::function<void(QQuickView*)>& steps) {
    inDialog(
        "选择" + caption.chopped(1), [&] { reach(view, button(field(view, caption), QStringLiteral("选择"))); },
        [&](QQuickView* picker) {
            steps(picker);
            clickText(picker, QStringLiteral("确定"));
        });
}

}  // namespace

QString value(QQuickView* view, const QString& caption) {
    return field(view, caption)->property("value").toString();
}

void enter(QQuickView* view, const QString& caption, const QString& text) {
    reach(view, field(view, caption)->property("field").value<QQuickItem*>());
    support::retype(view, text);
    QTest::keyClick(view, Qt::Key_Tab);
}

void press(QQuickView* view, const QString& text) {
    reach(view, button(view->contentItem(), text));
}

void choosePeople(QQuickView* view, const QString& caption, const char* pictureName,
                  const QList<QPair<QString, QString>>& people) {
    inPicker(view, caption, [&](QQuickView* picker) {
        for (const auto& [searched, shown] : people) {
            support::click(support::findByProperty(picker, "placeholderText", QStringLiteral("搜索联系人")));
            support::retype(picker, searched);
            QTest::keyClick(picker, Qt::Key_Return);
            expectText(picker, shown);
            QQuickItem* label = support::findByText(picker, shown);
            QQuickItem* box = support::findItem(label->parentItem(), [](QQuickItem* item) {
                return item->property("checkState").isValid() && item->width() > 0;
            });
            support::click(box ? box : label);
        }
        picture(pictureName);
    });
}

void upload(QQuickView* view, const QString& path) {
    inWidgets(
        QStringLiteral("打开"), [&] { press(view, QStringLiteral("本地上传")); },
        [&](QWidget* dialog) {
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            expect(name != nullptr, "the file dialog takes a name");
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
}

}  // namespace editor
