#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <QTreeWidget>
#include <vector>

#include "platform/linux/qt/accessibility.h"
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
        // Queued, since a key selects an entry before it becomes the current one.
        connect(entries().selectionModel(), &QItemSelectionModel::selectionChanged, this,
                &DrivePeer::followSelection, Qt::QueuedConnection);
    }

  protected:
    void draw() override {
        widget_.setCurrentIndex(widget_.findText(QString::fromStdString(control_.Drive)));
        entries().setCurrentIndex(entries().model()->index(widget_.currentIndex(), 0));
    }

  private:
    [[nodiscard]] QAbstractItemView& entries() const { return *widget_.view(); }

    /// Assistive technology selects an entry without making it the current one.
    void followSelection() {
        const QModelIndexList selected = entries().selectionModel()->selectedIndexes();
        if (selected.isEmpty() || selected.first() == entries().currentIndex()) return;
        widget_.hidePopup();
        widget_.setCurrentIndex(selected.first().row());
    }
};

/// A tree without the arrows that would open and close its rows.
class FolderTree : public QuietList<QTreeWidget> {
  public:
    using QuietList::QuietList;

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
        // If it selected rows, assistive technology would miss the nested ones.
        widget_.setSelectionBehavior(QAbstractItemView::SelectItems);
        // Queued, since a key selects an entry before it becomes the current one.
        connect(&widget_, &QTreeWidget::itemSelectionChanged, this, &FolderPeer::followSelection,
                Qt::QueuedConnection);
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
        QTreeWidgetItem* open = nullptr;
        for (int row = 0; row < static_cast<int>(control_.rows().size()); ++row) {
            above.resize(control_.rows()[row].depth + 1);
            above.push_back(drawRow(row, *above.back()));
            if (row == control_.openRow()) open = above.back();
        }
        widget_.expandAll();
        // Not before, when Qt would announce the header instead.
        widget_.setCurrentItem(open);
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
    /// Assistive technology has one action for an entry, so that opens it. It selects the entry
    /// without making it the current one.
    void followSelection() {
        const auto selected = widget_.selectedItems();
        if (selected.isEmpty() || selected.first() == widget_.currentItem()) return;
        widget_.setCurrentItem(selected.first());
        open();
    }

    void open() {
        if (const QTreeWidgetItem* item = widget_.currentItem())
            act([&] { control_.choose(item->data(0, Qt::UserRole).toInt()); });
    }

    QTreeWidgetItem* drawRow(int row, QTreeWidgetItem& above) {
        auto* item = new QTreeWidgetItem(&above);
        const bool open = row <= control_.openRow();
        item->setText(0, QString::fromStdString(control_.rows()[row].name));
        item->setIcon(0, widget_.style()->standardIcon(open ? QStyle::SP_DirOpenIcon
                                                            : QStyle::SP_DirClosedIcon));
        item->setData(0, Qt::UserRole, row);
        return item;
    }

    std::string drawn_;
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::DriveList& list, QWidget& parent) {
    return std::make_unique<DrivePeer>(list, parent);
}

std::unique_ptr<ControlPeer> makePeer(forms::FolderList& list, QWidget& parent) {
    return std::make_unique<FolderPeer>(list, parent);
}

}  // namespace qt
