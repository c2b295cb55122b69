#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <QTreeWidget>
#include <vector>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class DrivePeer : public PeerOf<forms::DriveList, QComboBox> {
  public:
    DrivePeer(forms::DriveList& list, QWidget& parent) : PeerOf(list, new QComboBox(&parent)) {
        // On Linux Qt exposes the chosen entry as the accessible name.
        widget_.setAccessibleDescription(QString::fromStdString(list.accessibleName()));
        const QIcon icon = widget_.style()->standardIcon(QStyle::SP_DriveHDIcon);
        for (const std::string& drive : list.drives())
            widget_.addItem(icon, QString::fromStdString(drive));
        connect(&widget_, &QComboBox::currentIndexChanged, this, [this](int index) {
            if (widget_.currentText().toStdString() != control_.Drive())
                act([&] { control_.pick(index); });
        });
    }

  protected:
    void draw() override {
        widget_.setCurrentIndex(widget_.findText(QString::fromStdString(control_.Drive)));
    }
};

/// A tree without the arrows that would open and close its rows.
class FolderTree : public QTreeWidget {
  public:
    using QTreeWidget::QTreeWidget;

  protected:
    void drawBranches(QPainter* /*painter*/, const QRect& /*place*/,
                      const QModelIndex& /*row*/) const override {}
};

/// Shows the path to the open folder as nested rows, and below them the folders in the open one.
class FolderPeer : public PeerOf<forms::FolderList, QTreeWidget> {
  public:
    FolderPeer(forms::FolderList& list, QWidget& parent) : PeerOf(list, new FolderTree(&parent)) {
        widget_.header()->hide();
        widget_.setRootIsDecorated(false);
        widget_.setItemsExpandable(false);
        widget_.setIndentation(widget_.indentation() / 2);
        // Not itemActivated, which some desktops send on a single click.
        widget_.installEventFilter(this);
        connect(&widget_, &QTreeWidget::itemDoubleClicked, this, [this] { open(); });
    }

  protected:
    void draw() override {
        if (drawn_ == control_.Path()) return;  // the user may be moving among the rows
        drawn_ = control_.Path();
        widget_.clear();
        std::vector<QTreeWidgetItem*> above{widget_.invisibleRootItem()};
        for (int row = 0; row < static_cast<int>(control_.rows().size()); ++row) {
            above.resize(control_.rows()[row].depth + 1);
            above.push_back(drawRow(row, *above.back()));
        }
        widget_.expandAll();
        widget_.scrollToItem(widget_.currentItem(), QAbstractItemView::PositionAtCenter);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        open();
        return true;
    }

  private:
    /// Uses the selected row: assistive technology does not make it the current one.
    void open() {
        const auto selected = widget_.selectedItems();
        if (selected.isEmpty()) return;
        act([&] { control_.choose(selected.first()->data(0, Qt::UserRole).toInt()); });
    }

    QTreeWidgetItem* drawRow(int row, QTreeWidgetItem& above) {
        auto* item = new QTreeWidgetItem(&above);
        const bool open = row <= control_.openRow();
        item->setText(0, QString::fromStdString(control_.rows()[row].name));
        item->setIcon(0, widget_.style()->standardIcon(open ? QStyle::SP_DirOpenIcon
                                                            : QStyle::SP_DirClosedIcon));
        item->setData(0, Qt::UserRole, row);
        if (row == control_.openRow()) widget_.setCurrentItem(item);
        return item;
    }

    std::string drawn_;
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::DriveList& list, QWidget& parent) {
    return std::make_unique<DrivePeer>(list, parent);
}

std::unique_ptr<forms::Peer> makePeer(forms::FolderList& list, QWidget& parent) {
    return std::make_unique<FolderPeer>(list, parent);
}

}  // namespace qt
