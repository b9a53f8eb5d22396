#include <chrono>

#include <QStandardItemModel>

#include "bench/Report.h"
#include "ui/common/ObservableCollection.h"

namespace {

constexpr int kRows = 100'000;

constexpr int kRoles = 20;

/// An element with as many properties as a row of the task list: the texts, one of its own, and the numbers.
class Entry : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString id MEMBER m_id CONSTANT)
    Q_PROPERTY(QString name READ text CONSTANT)
    Q_PROPERTY(QString catalogid READ text CONSTANT)
    Q_PROPERTY(QString owner READ text CONSTANT)
    Q_PROPERTY(QString updateperson READ text CONSTANT)
    Q_PROPERTY(QString status READ text CONSTANT)
    Q_PROPERTY(QString remark READ text CONSTANT)
    Q_PROPERTY(QString relBIMs READ text CONSTANT)
    Q_PROPERTY(QString relFiles READ text CONSTANT)
    Q_PROPERTY(QString receiver READ text CONSTANT)
    Q_PROPERTY(QString start_show READ text CONSTANT)
    Q_PROPERTY(QString end_show READ text CONSTANT)
    Q_PROPERTY(QString plan_show READ text CONSTANT)
    Q_PROPERTY(QString real_show READ text CONSTANT)
    Q_PROPERTY(QString update_show READ text CONSTANT)
    Q_PROPERTY(QString dead_show READ text CONSTANT)
    Q_PROPERTY(int position MEMBER m_position CONSTANT)
    Q_PROPERTY(bool selected MEMBER m_selected CONSTANT)

public:
    Entry(int position, const QString& text, QObject* parent)
        : QObject(parent), m_id(QString::number(position)), m_text(text), m_position(position) {}
    const QString& text() const { return m_text; }

private:
    QString m_id;
    QString m_text;
    int m_position;
    bool m_selected = false;
};

double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

const QString kText = QStringLiteral("三层柱钢筋绑扎");

void fill(ObservableCollection<Entry*>& list) {
    for (int i = 0; i < kRows; ++i)
        list.append(new Entry(i, kText, &list));
}

/// The same values in the same roles, without the objects.
void fill(QStandardItemModel& model) {
    for (int i = 0; i < kRows; ++i) {
        auto* item = new QStandardItem;
        item->setData(i, 0);
        item->setData(QString(), 1);
        item->setData(QString::number(i), 2);
        for (int role = 3; role < kRoles - 2; ++role)
            item->setData(kText, role);
        item->setData(i, kRoles - 2);
        item->setData(false, kRoles - 1);
        model.appendRow(item);
    }
}

template <class Model>
double fillTime() {
    Model model;
    return seconds([&] { fill(model); });
}

double readTime(const QAbstractItemModel& model) {
    return seconds([&] {
        int valid = 0;
        for (int row = 0; row < kRows; ++row)
            for (int role = 0; role < kRoles; ++role)
                valid += model.data(model.index(row, 0), role).isValid();
        if (valid != kRows * kRoles)
            qFatal("a role was not read");
    });
}

}  // namespace

int main() {
    bench::Row("collection of 100,000 objects: fill", 0.5, fillTime<ObservableCollection<Entry*>>,
               fillTime<QStandardItemModel>);

    ObservableCollection<Entry*> list;
    fill(list);
    QStandardItemModel model;
    fill(model);
    bench::Row(
        "collection of 100,000 objects: read all roles", 1.3, [&] { return readTime(list); },
        [&] { return readTime(model); });
}

#include "collection_bench.moc"
