#include <QKeyEvent>
#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>
#include <vector>

#include "platform/linux/qt/accessibility.h"
#include "platform/linux/qt/control_peer.h"
#include "platform/linux/qt/peers.h"

namespace qt {

namespace {

class ListPeer : public PeerOf<forms::ListBox, QListWidget> {
  public:
    ListPeer(forms::ListBox& list, QWidget& parent)
        : PeerOf(list, new QuietList<QListWidget>(&parent)) {
        widget_.setUniformItemSizes(true);
        // Elides the middle of a long path; its tooltip shows it whole.
        widget_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        widget_.setTextElideMode(Qt::ElideMiddle);
        widget_.installEventFilter(this);
        connect(&widget_, &QListWidget::itemSelectionChanged, this, [this] {
            // Assistive technology selects an entry beside the one that was selected before.
            const std::vector<int> rows = selectedRows();
            const auto picked =
                std::ranges::find_if(rows, [&](int row) { return row != control_.ListIndex; });
            act([&] {
                if (picked != rows.end()) control_.pick(*picked);
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
        const int index = control_.ListIndex;
        if (selectedRows() == (index < 0 ? std::vector<int>{} : std::vector{index})) return;
        widget_.clearSelection();
        if (index >= 0) widget_.setCurrentRow(index);
    }

    /// If no row is selected, a key selects the row that it reaches. Qt would not select the
    /// current row, and so never the only row of a list.
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !selectedRows().empty()) return false;
        if (widget_.currentRow() < 0) widget_.setCurrentRow(0, QItemSelectionModel::NoUpdate);
        const int row = widget_.currentRow();
        if (!staysAt(row, static_cast<QKeyEvent*>(event)->key())) return false;
        widget_.setCurrentRow(row);
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

    /// True if the key does not move on from the current row, if none is selected.
    [[nodiscard]] bool staysAt(int row, int key) const {
        switch (key) {
            case Qt::Key_Up:
            case Qt::Key_Down:
                return true;
            case Qt::Key_Home:
            case Qt::Key_PageUp:
                return row == 0;
            case Qt::Key_End:
            case Qt::Key_PageDown:
                return row == widget_.count() - 1;
            default:
                return false;
        }
    }

    [[nodiscard]] std::vector<int> selectedRows() const {
        std::vector<int> rows;
        for (const QModelIndex& index : widget_.selectionModel()->selectedRows())
            rows.push_back(index.row());
        return rows;
    }
};

}  // namespace

std::unique_ptr<ControlPeer> makePeer(forms::ListBox& list, QWidget& parent) {
    return std::make_unique<ListPeer>(list, parent);
}

}  // namespace qt
