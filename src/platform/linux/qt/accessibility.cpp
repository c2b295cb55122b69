#include "platform/linux/qt/accessibility.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QTabBar>
#include <vector>

namespace qt {

namespace {

constexpr const char* roleProperty = "accessibleRole";

/// Keeps a line without a name: Qt would name it after the frame around it.
class Interface : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return role() == QAccessible::Separator ? QString() : QAccessibleWidget::text(kind);
    }
};

/// A tab of a tab bar.
class TabInterface : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    TabInterface(QTabBar& bar, int index) : bar_(&bar), index_(index) {}

    [[nodiscard]] bool isValid() const override { return bar_ && index_ < bar_->count(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(bar_);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::PageTab; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return bar_->tabText(index_);
        return kind == QAccessible::Description ? bar_->tabToolTip(index_) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        const QRect inside = bar_->tabRect(index_);
        return {bar_->mapToGlobal(inside.topLeft()), inside.size()};
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = parent()->state();
        state.selectable = true;
        state.selected = index_ == bar_->currentIndex();
        state.focused = state.focused && state.selected;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& /*name*/) override {
        emit bar_->tabBarClicked(index_);
        if (bar_) bar_->setCurrentIndex(index_);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

  private:
    const QPointer<QTabBar> bar_;
    const int index_;
};

/// Creates the interfaces of its tabs when they are asked for.
class TabBarInterface : public QAccessibleWidget {
  public:
    explicit TabBarInterface(QTabBar& bar)
        : QAccessibleWidget(&bar, QAccessible::PageTabList), bar_(bar) {}

    [[nodiscard]] int childCount() const override { return bar_.count(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        while (static_cast<int>(tabs_.size()) <= index) {
            const int next = static_cast<int>(tabs_.size());
            tabs_.push_back(QAccessible::registerAccessibleInterface(new TabInterface(bar_, next)));
        }
        return QAccessible::accessibleInterface(tabs_[index]);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override {
        int index = childCount() - 1;
        while (index >= 0 && child(index) != wanted)
            --index;
        return index;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return bar_.hasFocus() ? child(bar_.currentIndex()) : nullptr;
    }

  protected:
    ~TabBarInterface() override {
        for (const QAccessible::Id tab : tabs_)
            QAccessible::deleteAccessibleInterface(tab);
    }

  private:
    QTabBar& bar_;
    mutable std::vector<QAccessible::Id> tabs_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) return nullptr;
    const QVariant role = widget->property(roleProperty);
    if (!role.isValid()) return nullptr;
    if (auto* bar = qobject_cast<QTabBar*>(widget)) return new TabBarInterface(*bar);
    return new Interface(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    QAccessible::installFactory(makeInterface);  // has an effect only once
    widget.setProperty(roleProperty, static_cast<int>(role));
}

std::unique_ptr<QTabBar> makeTabBar() {
    auto bar = std::make_unique<QTabBar>();
    setAccessibleRole(*bar, QAccessible::PageTabList);
    bar->setDrawBase(false);  // as a tab widget sets up its own
    return bar;
}

}  // namespace qt
