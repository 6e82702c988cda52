// Creates the widgets of a window, keeps them in step with their elements and sends the user's events.
#include "reference_host/qt/element_widgets.h"

#include <algorithm>

#include "reference_host/qt/element_kinds.h"
#include "reference_host/shell/front_end.h"
#include "reference_host/toolkit/told.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::element_view;

QString shown(wide_view text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }

wide_string entered(const QString& text) { return text.toStdU16String(); }

QString said(const char* english, const char* russian) {
    return QString::fromUtf8(shell::settings().language_offset != 0 ? english : russian);
}

element_widget::element_widget(element_widgets& all, const element& live, QWidget* widget)
    : all_(all), live_(live), widget_(widget), kind_(toolkit::told<&element_impl::kind>(live)) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // a hidden element keeps its place
    widget->setSizePolicy(policy);
    // An element has one observer, so it can be shown by one widget at a time.
    call<&element_impl::set_observer>(live_, pointer_to<element_observer_impl>(*this));
}

element_widget::~element_widget() { call<&element_impl::set_observer>(live_, element_observer()); }

void element_widget::on_changed(element) { all_.note_change(*this); }

void element_widget::refresh() {
    is_enabled_ = call<&element_impl::enabled>(live_);
    is_visible_ = call<&element_impl::visible>(live_);
    // Kept and restored, because showing a value can cause another refresh.
    const bool was_showing = std::exchange(is_showing_, true);
    if (keeper_) {
        keeper_->refresh();
    } else {
        widget_->setEnabled(is_enabled_);
        // A widget without a parent is a window: making it visible here would open it too early.
        if (!is_visible_ || widget_->parentWidget()) widget_->setVisible(is_visible_);
    }
    show();
    is_showing_ = was_showing;
}

element_view element_widget::look() const {
    element_view view;
    view.live = live_;
    view.kind = kind_;
    view.enabled = !widget_->testAttribute(Qt::WA_ForceDisabled); // not counting its parents
    // Whether the widget itself is hidden: on a page that is not shown nothing is visible.
    view.visible = !widget_->isHidden();
    for (const element_widget* each : inside_) view.children.push_back(each->look());
    read(view);
    return view;
}

element_widget* element_widget::add(const element& child, QWidget* parent) {
    element_widget* const made = all_.make(child, parent ? parent : widget_);
    if (made) inside_.push_back(made);
    return made;
}

void element_widget::send(const std::function<void()>& event) {
    if (!is_showing_) all_.send(event);
}

element_widgets::element_widgets() {
    // Collects the changes of one event: an operation of the bundle changes many elements many times.
    later_.setSingleShot(true);
    QObject::connect(&later_, &QTimer::timeout, [this] { settle(); });
}

element_widgets::~element_widgets() {
    // From here on, changes and events of widgets that end are ignored.
    is_closing_ = true;
    later_.stop();
    for (const QPointer<QWidget>& root : roots_) delete root; // views before their models
    widgets_.clear();
}

element_widget* element_widgets::make(const element& live, QWidget* parent) {
    if (!live) return nullptr;
    ++depth_; // making it also makes the widgets inside it
    std::unique_ptr<element_widget> made = widget_of(*this, live, parent);
    element_widget* const widget = made.get();
    // After its children, which are created inside its constructor.
    widgets_.push_back(std::move(made));
    widget->refresh();
    if (--depth_ == 0) roots_.emplace_back(widget->widget());
    return widget;
}

element_widget* element_widgets::find(const element& live) const {
    const auto found = std::ranges::find_if(widgets_, [&](const auto& each) { return each->live() == live; });
    return found == widgets_.end() ? nullptr : found->get();
}

void element_widgets::note_change(element_widget& changed) {
    if (is_closing_) return;
    if (std::ranges::find(changed_, &changed) == changed_.end()) changed_.push_back(&changed);
    if (!later_.isActive()) later_.start(0);
}

void element_widgets::settle() {
    // Showing a value can change further elements. The list is exchanged, because it grows meanwhile.
    while (!changed_.empty() && !is_closing_) {
        const std::vector<element_widget*> now = std::exchange(changed_, {});
        for (element_widget* each : now) each->refresh();
    }
}

void element_widgets::send(const std::function<void()>& event) {
    if (is_closing_) return;
    ++at_work_;
    event();
    --at_work_;
    settle();
    // Events can be nested: a box of the bundle handles others while it is open.
    if (at_work_ == 0 && on_idle) on_idle();
}

void element_widgets::commit() {
    // By index: a commit is an event, which may add widgets.
    for (std::size_t index = 0; index < widgets_.size(); ++index) widgets_[index]->commit();
}

} // namespace vestra::qt
