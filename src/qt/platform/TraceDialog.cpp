#include "qt/platform/TraceDialog.h"

#include <QDialogButtonBox>
#include <QShowEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace planview {

namespace {

constexpr QSize UsualSize(860, 480);
constexpr int TwipsPerInch = 1440;

}  // namespace

TraceDialog::TraceDialog(const ListView& entries, QWidget* parent)
    : QDialog(parent), entries_(entries), list_(new QTreeWidget(this)) {
    QStringList captions;
    for (const ListColumn& column : entries_.Columns()) {
        captions << QString::fromStdString(column.caption);
    }
    list_->setHeaderLabels(captions);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    for (int i = 0; i < captions.size(); ++i) {
        const int twips = entries_.Columns()[static_cast<std::size_t>(i)].width;
        list_->setColumnWidth(i, twips * logicalDpiX() / TwipsPerInch);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    resize(UsualSize);
}

void TraceDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    list_->clear();
    QList<QTreeWidgetItem*> lines;
    for (std::size_t i = 0; i < entries_.Count(); ++i) {
        const ListItem& entry = entries_.Item(i);
        QStringList texts(QString::fromStdString(entry.text));
        for (const std::string& text : entry.subItems) {
            texts << QString::fromStdString(text);
        }
        lines << new QTreeWidgetItem(texts);
    }
    list_->addTopLevelItems(lines);
    list_->scrollToBottom();
}

}  // namespace planview
