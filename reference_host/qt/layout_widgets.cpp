// Widgets that arrange other elements: grids, frames, split and stacked layouts, pages, tool bars, dockers.
#include <QAbstractScrollArea>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <memory>

#include "host/toolkit/docker.h"
#include "host/toolkit/grid_layout.h"
#include "host/toolkit/grid_span_layout.h"
#include "host/toolkit/groupbox.h"
#include "host/toolkit/groupbox_span.h"
#include "host/toolkit/split_layout.h"
#include "host/toolkit/stack_layout.h"
#include "host/toolkit/tab_layout.h"
#include "host/toolkit/toolbar.h"
#include "reference_host/qt/element_kinds.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::element_view;

namespace {

// Sets the accessible name of a field to the label before it, for screen readers.
void name_after(const QWidget* before, QWidget* field) {
    const auto* const label = qobject_cast<const QLabel*>(before);
    // A field of several widgets gets its name at the one that takes the keys.
    QWidget* const takes_keys = field->focusProxy() ? field->focusProxy() : field;
    if (!label || label->text().isEmpty() || takes_keys->focusPolicy() == Qt::NoFocus) return;
    // A field that already has a name keeps it, and the label describes it.
    if (takes_keys->accessibleName().isEmpty())
        takes_keys->setAccessibleName(label->text());
    else
        takes_keys->setAccessibleDescription(label->text());
}

template <class Widget>
class grid_widget_of : public widget_for<grid_layout_impl, Widget> {
public:
    grid_widget_of(element_widgets& all, const element& live, QWidget* parent)
        : widget_for<grid_layout_impl, Widget>(all, live, new Widget(parent)) {
        auto grid = std::make_unique<QGridLayout>();
        // Only a frame has margins: nested grids would otherwise be indented.
        if (!qobject_cast<QGroupBox*>(this->own_)) grid->setContentsMargins({});
        const auto spans = cast_to<grid_span_layout_impl>(live);
        const uint32_t rows = this->template ask<&grid_layout_impl::rows>();
        const uint32_t columns = this->template ask<&grid_layout_impl::columns>();
        const QWidget* before = nullptr;
        for (uint32_t row = 0; row < rows; ++row)
            for (uint32_t column = 0; column < columns; ++column) {
                element_widget* const cell =
                    this->add(this->template ask<&grid_layout_impl::child>(row, column));
                // Empty, or covered by a cell that spans several columns.
                if (!cell) continue;
                const uint32_t span =
                    spans ? call<&grid_span_layout_impl::column_span>(spans, row, column) : 1;
                grid->addWidget(cell->widget(), static_cast<int>(row), static_cast<int>(column), 1,
                                static_cast<int>(std::max(span, 1U)));
                name_after(before, cell->widget());
                before = cell->widget();
            }
        stretch(*grid, static_cast<int>(rows), static_cast<int>(columns));
        this->own_->setLayout(grid.release());
    }

private:
    // Gives the remaining height to the spare row, to rows that can use it, or else below all rows.
    void stretch(QGridLayout& grid, int rows, int columns) {
        const uint32_t spare = this->template ask<&grid_layout_impl::spare_row>();
        if (spare < static_cast<uint32_t>(rows))
            grid.setRowStretch(static_cast<int>(spare), 1);
        else if (!this->own_->template findChild<QAbstractScrollArea*>()) // lists and long texts
            grid.setRowStretch(rows, 1);
        // In a grid of two columns, labels and fields, the fields take the remaining width.
        if (rows > 1 && columns > 1) grid.setColumnStretch(columns - 1, columns == 2 ? 1 : 0);
    }
};

using grid_widget = grid_widget_of<QWidget>;

class frame_widget final : public grid_widget_of<QGroupBox> {
public:
    frame_widget(element_widgets& all, const element& live, QWidget* parent)
        : grid_widget_of(all, live, parent) {
        own_->setTitle(
            on_button(shown(toolkit::told<&groupbox_impl::caption>(cast_to<groupbox_impl>(live)))));
    }

private:
    void read(element_view& view) const override { view.caption = entered(off_button(own_->title())); }
};

class split_widget final : public widget_for<split_layout_impl, QSplitter> {
public:
    split_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QSplitter(Qt::Vertical, parent)) {
        // A part that was dragged to nothing would be hard to find again.
        own_->setChildrenCollapsible(false);
        for (const element& part : {ask<&split_layout_impl::top>(), ask<&split_layout_impl::bottom>()})
            if (element_widget* const made = add(part)) own_->addWidget(made->widget());
        // The lower part, which has the longer list, gets more of the height.
        own_->setStretchFactor(1, 2);
    }
};

class stack_widget final : public widget_for<stack_layout_impl, QWidget> {
public:
    stack_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)) {
        auto* const row = new QHBoxLayout(own_);
        row->setContentsMargins({});
        const uint32_t count = ask<&stack_layout_impl::child_count>();
        for (uint32_t index = 0; index < count; ++index)
            if (element_widget* const part = add(ask<&stack_layout_impl::child>(index)))
                row->addWidget(part->widget());
        row->addStretch();
    }
};

class toolbar_widget final : public widget_for<toolbar_impl, QWidget> {
public:
    toolbar_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)) {
        auto* const row = new QHBoxLayout(own_);
        row->setContentsMargins({});
        row->setSpacing(0);
        const uint32_t count = ask<&toolbar_impl::tool_count>();
        for (uint32_t index = 0; index < count; ++index)
            if (element_widget* const tool = add(ask<&toolbar_impl::tool>(index)))
                row->addWidget(tool->widget());
        row->addStretch();
    }
};

class docker_widget final : public widget_for<docker_impl, QWidget> {
public:
    docker_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)) {
        auto column = std::make_unique<QVBoxLayout>();
        // Only a page has margins; a window has its own.
        if (parent && !qobject_cast<QTabWidget*>(parent)) column->setContentsMargins({});
        own_->setWindowTitle(text_of<&docker_impl::title>());
        own_->setAccessibleDescription(text_of<&docker_impl::description>());
        for (const element& part : {ask<&docker_impl::main_element>(), ask<&docker_impl::buttons>()})
            if (element_widget* const made = add(part)) column->addWidget(made->widget());
        own_->setLayout(column.release());
    }

private:
    void read(element_view& view) const override {
        view.caption = entered(own_->windowTitle());
        view.text = entered(own_->accessibleDescription());
    }
};

class tab_widget final : public widget_for<tab_layout_impl, QTabWidget> {
public:
    tab_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QTabWidget(parent)) {
        const uint32_t count = ask<&tab_layout_impl::page_count>();
        for (uint32_t index = 0; index < count; ++index) {
            element_widget* const page = add(cast_to<element_impl>(ask<&tab_layout_impl::page>(index)));
            if (!page) continue;
            // The id, which programs and tests look for.
            page->widget()->setObjectName(text_of<&tab_layout_impl::page_id>(index));
            own_->addTab(page->widget(), on_button(text_of<&tab_layout_impl::page_title>(index)));
            // The tab widget shows and hides its pages itself; hiding a page's widget would confuse it.
            page->leave_state_to(*this);
        }
        own_->setUsesScrollButtons(true);
        QObject::connect(own_, &QTabWidget::currentChanged, [this](int index) {
            send([&] { ask<&tab_layout_impl::page_chosen>(static_cast<uint32_t>(index)); });
            if (index >= 0) refresh(); // the element can reject the choice
        });
    }

private:
    void show() override {
        for (int index = 0; index < own_->count(); ++index) {
            const element_widget& page = *inside()[static_cast<size_t>(index)];
            const bool on = ask<&tab_layout_impl::page_enabled>(static_cast<uint32_t>(index));
            // A page has two states, its own and that of its tab.
            own_->setTabEnabled(index, on && call<&element_impl::enabled>(page.live()));
            own_->setTabVisible(index, call<&element_impl::visible>(page.live()));
        }
        // A page stays current even after its tab is disabled; the widget would switch to another one.
        own_->setCurrentIndex(static_cast<int>(ask<&tab_layout_impl::active_page>()));
    }
    void read(element_view& view) const override {
        for (int index = 0; index < own_->count(); ++index) {
            element_view& page = view.children[static_cast<size_t>(index)];
            page.id = entered(own_->widget(index)->objectName());
            page.caption = entered(off_button(own_->tabText(index)));
            page.enabled = own_->isTabEnabled(index);
            page.visible = own_->isTabVisible(index);
        }
        view.current = static_cast<uint32_t>(own_->currentIndex());
    }
};

} // namespace

const std::vector<kind_of_widget>& layout_kinds() {
    static const std::vector<kind_of_widget> kinds{
        {grid_layout_impl::element_kind, &make_widget<grid_widget>},
        {grid_span_layout_impl::element_kind, &make_widget<grid_widget>},
        {groupbox_impl::element_kind, &make_widget<frame_widget>},
        {groupbox_span_impl::element_kind, &make_widget<frame_widget>},
        {split_layout_impl::element_kind, &make_widget<split_widget>},
        {stack_layout_impl::element_kind, &make_widget<stack_widget>},
        {toolbar_impl::element_kind, &make_widget<toolbar_widget>},
        {docker_impl::element_kind, &make_widget<docker_widget>},
        {tab_layout_impl::element_kind, &make_widget<tab_widget>}};
    return kinds;
}

std::unique_ptr<element_widget> widget_of(element_widgets& all, const element& live, QWidget* parent) {
    // By the kind and not by the interfaces, since a frame is also a grid.
    const wide_string kind = toolkit::told<&element_impl::kind>(live);
    for (const auto* kinds : {&field_kinds(), &button_kinds(), &layout_kinds(), &outline_kinds()})
        for (const kind_of_widget& each : *kinds)
            if (kind == each.kind) return each.make(all, live, parent);
    // A newer bundle may have kinds that this host does not know; the rest of its window still works.
    return std::make_unique<element_widget>(all, live, new QWidget(parent));
}

} // namespace vestra::qt
