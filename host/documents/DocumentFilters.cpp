#include "host/documents/DocumentFilters.h"

#include <algorithm>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "host/shell/FlatCombo.h"
#include "sdk/packages/documents/IKpxDocFileListMgr.h"

namespace workbench {

DocumentFilters::DocumentFilters()
    : m_search(new QLineEdit), m_type(new FlatCombo), m_tag(new FlatCombo), m_trash(new QCheckBox(tr("已删除(&D)"))) {
    m_search->setPlaceholderText(tr("请输入资料名称关键字"));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(tr("资料名称关键字"));
    m_type->setAccessibleName(tr("文件类型"));
    m_tag->setAccessibleName(tr("标签"));
    for (QComboBox* box : {m_type, m_tag}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setMinimumContentsLength(8);
        connect(box, qOverload<int>(&QComboBox::activated), this, &DocumentFilters::changed);
    }
    connect(m_search, &QLineEdit::returnPressed, this, &DocumentFilters::changed);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text.isEmpty())
            emit changed();
    });
    connect(m_trash, &QCheckBox::toggled, this, &DocumentFilters::changed);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(10);
    layout->addWidget(m_search, 1);
    layout->addWidget(new QLabel(tr("文件类型:")));
    layout->addWidget(m_type);
    layout->addWidget(new QLabel(tr("标签:")));
    layout->addWidget(m_tag);
    layout->addWidget(m_trash);
}

void DocumentFilters::offer(const std::vector<DocumentType>& types, const std::vector<DocumentLabel>& tags) {
    const auto fill = [this](QComboBox& box, const std::vector<DocumentLabel>& entries) {
        const QString current = box.currentData().toString();
        box.clear();
        box.addItem(tr("全部"), QString());
        for (const DocumentLabel& entry : entries)
            box.addItem(entry.name, entry.id);
        box.setCurrentIndex(std::max(0, box.findData(current)));
    };
    std::vector<DocumentLabel> names;
    for (const DocumentType& type : types)
        names.push_back({type.name, type.name});
    fill(*m_type, names);
    auto withNone = tags;
    withNone.push_back({QString::fromWCharArray(DOCUMENTPACKAGE::kNoTag), tr("空")});
    fill(*m_tag, withNone);
}

void DocumentFilters::reset() {
    const QSignalBlocker quiet(this);
    m_search->clear();
    m_type->setCurrentIndex(0);
    m_tag->setCurrentIndex(0);
    m_trash->setChecked(false);
}

void DocumentFilters::addTo(DocumentQuery& query) const {
    query.type = m_type->currentData().toString();
    query.tagId = m_tag->currentData().toString();
    query.keyword = m_search->text().trimmed();
    query.deletedOnes = isTrash();
}

bool DocumentFilters::areSet() const {
    return m_type->currentIndex() > 0 || m_tag->currentIndex() > 0 || !m_search->text().trimmed().isEmpty();
}

bool DocumentFilters::isTrash() const {
    return m_trash->isChecked();
}

void DocumentFilters::allowTrash(bool isAllowed) {
    m_trash->setEnabled(isAllowed);
    m_trash->setToolTip(isAllowed ? QString() : tr("没有删除资料的权限"));
}

void DocumentFilters::focusSearch() {
    m_search->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace workbench
