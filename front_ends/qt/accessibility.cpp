#include "front_ends/qt/accessibility.h"

#include <algorithm>
#include <map>
#include <vector>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QPointer>

#include "front_ends/common/walk.h"
#include "front_ends/qt/canvas.h"
#include "front_ends/qt/scale.h"

namespace solvanta::qt {
namespace {

/// A place of the table, for screen readers: a button with the name that the table gives it.
class PlaceAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    PlaceAccess(Canvas& canvas, const PictureElement& place) : canvas_(&canvas), place_(place) {}

    const PictureElement& place() const { return place_; }

    bool isValid() const override { return !canvas_.isNull() && is_place(place_); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return canvas_->window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(canvas_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return QString::fromStdString(place_name(place_));
        return kind == QAccessible::Accelerator && place_.Key != 0 ? QString(QChar(place_.Key))
                                                                   : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QAccessible::Role role() const override { return QAccessible::PushButton; }

    QRect rect() const override {
        return to_qt(canvas_->scale().place_of(place_)).translated(canvas_->mapToGlobal(QPoint()));
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !isValid() || !canvas_->isVisible();
        state.disabled = !canvas_->isEnabled();
        state.focusable = state.selectable = true;
        state.focused = canvas_->place_with_focus() == &place_;
        state.selected = place_.IsSelected && place_.IsSelected();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
    void doAction(const QString& name) override {
        if (!isValid()) return;
        name == pressAction() ? canvas_->click(place_) : canvas_->walk_to(place_);
    }

  private:
    QPointer<Canvas> canvas_;
    const PictureElement& place_;
};

/// The canvas: its places, then the toolkit's controls.
class CanvasAccess final : public QAccessibleWidget {
  public:
    explicit CanvasAccess(Canvas& canvas)
        : QAccessibleWidget(&canvas, QAccessible::Grouping, "Spieltisch"), canvas_(canvas) {}
    CanvasAccess(const CanvasAccess&) = delete;
    CanvasAccess& operator=(const CanvasAccess&) = delete;
    ~CanvasAccess() override {
        for (const auto& [place, access] : accesses_)
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(access));
    }

    QAccessibleInterface* access_of(const PictureElement& place) const {
        PlaceAccess*& access = accesses_[&place];
        if (!access)
            QAccessible::registerAccessibleInterface(access = new PlaceAccess(canvas_, place));
        return access;
    }

    int childCount() const override {
        return static_cast<int>(places().size()) + QAccessibleWidget::childCount();
    }

    QAccessibleInterface* child(int index) const override {
        const auto places = this->places();
        const int controls = index - static_cast<int>(places.size());
        if (controls >= 0) return QAccessibleWidget::child(controls);
        return index < 0 ? nullptr : access_of(*places[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto places = this->places();
        const auto* const access = dynamic_cast<const PlaceAccess*>(child);
        if (!access) {
            const int control = QAccessibleWidget::indexOfChild(child);
            return control < 0 ? control : control + static_cast<int>(places.size());
        }
        const auto found = std::find(places.begin(), places.end(), &access->place());
        return found == places.end() ? -1 : static_cast<int>(found - places.begin());
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        if (QAccessibleInterface* const control = QAccessibleWidget::childAt(x, y)) return control;
        for (const PictureElement* place : places()) {
            QAccessibleInterface* const access = access_of(*place);
            if (access->rect().contains(x, y)) return access;
        }
        return nullptr;
    }

    QAccessibleInterface* focusChild() const override {
        const PictureElement* const place = canvas_.place_with_focus();
        return place ? access_of(*place) : QAccessibleWidget::focusChild();
    }

  private:
    std::vector<PictureElement*> places() const { return places_of(canvas_.container()); }

    Canvas& canvas_;
    mutable std::map<const PictureElement*, PlaceAccess*> accesses_;  // Qt's to delete
};

QAccessibleInterface* make_access(const QString& /*class_name*/, QObject* object) {
    auto* const canvas = dynamic_cast<Canvas*>(object);
    if (!canvas) return nullptr;
    if (has_key_stops(canvas->container())) return new CanvasAccess(*canvas);
    return new QAccessibleWidget(canvas, QAccessible::Grouping);
}

CanvasAccess& access_of(Canvas& canvas) {
    return dynamic_cast<CanvasAccess&>(*QAccessible::queryAccessibleInterface(&canvas));
}

void tell(QAccessibleInterface* access, QAccessible::Event what) {
    QAccessibleEvent event(access, what);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

void install_accessibility() {
    QAccessible::installFactory(make_access);
}

bool is_heard() {
    return QAccessible::isActive();
}

void tell(Canvas& canvas, const News& news) {
    const CanvasAccess& access = access_of(canvas);
    for (const PictureElement* place : news.renamed)
        tell(access.access_of(*place), QAccessible::NameChanged);
    if (news.others) tell(&access_of(canvas), QAccessible::ObjectReorder);
    if (news.focused) tell(access.access_of(*news.focused), QAccessible::Focus);
    say(canvas, news.said);
}

void say(Canvas& canvas, const std::string& text) {
    if (text.empty() || !is_heard()) return;
    const QString said = QString::fromStdString(text);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&canvas, said);
    QAccessible::updateAccessibility(&event);
#else
    auto* label = canvas.findChild<QLabel*>("announcer", Qt::FindDirectChildrenOnly);
    if (!label) {
        label = new QLabel(&canvas);  // empty to see
        label->setObjectName("announcer");
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->setGeometry(0, 0, 1, 1);
        label->show();
    }
    label->setAccessibleName(said);
#endif
}

}  // namespace solvanta::qt
