#include <QKeyEvent>
#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class ListPeer : public PeerOf<forms::ListBox, QListWidget> {
  public:
    ListPeer(forms::ListBox& list, QWidget& parent) : PeerOf(list, new QListWidget(&parent)) {
        widget_.setUniformItemSizes(true);
        // Elides the middle of a long path; its tooltip shows it whole.
        widget_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        widget_.setTextElideMode(Qt::ElideMiddle);
        widget_.installEventFilter(this);
        connect(&widget_, &QListWidget::itemSelectionChanged, this, [this] {
            const int row = selectedRow();
            act([&] {
                if (row >= 0 && row != control_.ListIndex) control_.pick(row);
            });
        });
    }

  protected:
    void draw() override {
        const QSignalBlocker quiet(widget_);
        while (widget_.count() > control_.ListCount())
            delete widget_.takeItem(widget_.count() - 1);
        for (int row = 0; row < control_.ListCount(); ++row)
            drawRow(row);
        if (selectedRow() == control_.ListIndex) return;
        widget_.clearSelection();
        if (control_.ListIndex >= 0) widget_.setCurrentRow(control_.ListIndex);
    }

    /// If no row is selected, an arrow key selects the current row. Qt would skip it, and so never
    /// reach the only row of a list.
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || selectedRow() >= 0) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
        widget_.setCurrentRow(std::max(widget_.currentRow(), 0));
        return true;
    }

  private:
    void drawRow(int row) {
        const QString text = QString::fromStdString(control_.List(row));
        if (row == widget_.count()) widget_.addItem(text);
        QListWidgetItem& item = *widget_.item(row);
        if (item.text() != text) item.setText(text);
        item.setToolTip(wrappingToolTip(control_.List(row)));
    }

    [[nodiscard]] int selectedRow() const {
        const auto selected = widget_.selectedItems();
        return selected.isEmpty() ? -1 : widget_.row(selected.first());
    }
};

}  // namespace

std::unique_ptr<forms::Peer> makePeer(forms::ListBox& list, QWidget& parent) {
    return std::make_unique<ListPeer>(list, parent);
}

}  // namespace qt
