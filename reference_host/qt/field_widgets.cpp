// Widgets for texts, numbers, and fields that take a value.
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "host/toolkit/dropdownex.h"
#include "host/toolkit/label.h"
#include "host/toolkit/label_ex.h"
#include "host/toolkit/multiline_output.h"
#include "host/toolkit/output.h"
#include "reference_host/qt/element_kinds.h"
#include "reference_host/qt/path_field.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::element_view;

namespace {

class label_widget final : public widget_for<label_impl, QLabel> {
public:
    label_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QLabel(parent)) {
        // A text may look like HTML and must be shown as it is.
        own_->setTextFormat(Qt::PlainText);
        own_->setWordWrap(true);
        // An empty hidden label would let the next element move to its place.
        if (text_of<&label_impl::text>().isEmpty()) own_->setMinimumWidth(20);
    }

private:
    void show() override { own_->setText(text_of<&label_impl::text>()); }
    void read(element_view& view) const override { view.text = entered(own_->text()); }
};

// A line of text that can be selected and copied.
class output_widget final : public widget_for<output_impl, QLabel> {
public:
    output_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QLabel(parent)) {
        own_->setTextFormat(Qt::PlainText);
        own_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }

private:
    void show() override { own_->setText(text_of<&output_impl::text>()); }
    void read(element_view& view) const override { view.text = entered(own_->text()); }
};

class lines_widget final : public widget_for<multiline_output_impl, QPlainTextEdit> {
public:
    lines_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QPlainTextEdit(parent)) {
        own_->setReadOnly(true);
        // A text that cannot be edited must not catch the tab key.
        own_->setTabChangesFocus(true);
        const QFontMetrics metrics = own_->fontMetrics();
        const auto columns = static_cast<int>(ask<&multiline_output_impl::width>());
        const auto lines = static_cast<int>(ask<&multiline_output_impl::height>());
        // One line more, for the frame and the margins of the text.
        own_->setMinimumSize(metrics.averageCharWidth() * columns, metrics.lineSpacing() * (lines + 1));
    }

private:
    void show() override { own_->setPlainText(text_of<&multiline_output_impl::text>()); }
    void read(element_view& view) const override { view.text = entered(own_->toPlainText()); }
};

class figure_widget final : public widget_for<label_ex_impl, QWidget> {
public:
    figure_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)), caption_(new QLabel(own_)), figure_(new QLabel(own_)) {
        auto* const row = new QHBoxLayout(own_);
        row->setContentsMargins({});
        row->addWidget(caption_);
        row->addWidget(figure_);
        row->addStretch();
        caption_->setText(text_of<&label_ex_impl::caption>());
        figure_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        figure_->setAccessibleName(caption_->text());
    }

private:
    void show() override {
        figure_->setText(text_of<&label_ex_impl::value>() + text_of<&label_ex_impl::unit>());
    }
    void read(element_view& view) const override {
        view.caption = entered(caption_->text());
        view.text = entered(figure_->text());
    }

    QLabel* const caption_;
    QLabel* const figure_;
};

class choice_widget final : public widget_for<dropdownex_impl, QWidget> {
public:
    choice_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)), label_(new QLabel(own_)), list_(new QComboBox(own_)) {
        auto* const row = new QHBoxLayout(own_);
        row->setContentsMargins({});
        row->addWidget(label_);
        row->addWidget(list_);
        row->addStretch();
        label_->setText(text_of<&dropdownex_impl::label>());
        list_->setAccessibleName(label_->text());
        const uint32_t count = ask<&dropdownex_impl::row_count>();
        for (uint32_t index = 0; index < count; ++index)
            list_->addItem(text_of<&dropdownex_impl::row_text>(index));
        // So that a label next to the whole widget names the list.
        own_->setFocusProxy(list_);
        // `activated` is only emitted for the user. The element may refuse the row, so it is read again.
        QObject::connect(list_, &QComboBox::activated, [this](int index) {
            send([&] { ask<&dropdownex_impl::row_chosen>(static_cast<uint32_t>(index)); });
            refresh();
        });
    }

private:
    void show() override {
        const uint32_t row = ask<&dropdownex_impl::current_row>();
        // -1 shows an empty list, which is Qt's form of no row.
        list_->setCurrentIndex(row == dropdownex_impl::no_row ? -1 : static_cast<int>(row));
    }
    void read(element_view& view) const override {
        view.caption = entered(label_->text());
        for (int index = 0; index < list_->count(); ++index)
            view.choices.push_back(entered(list_->itemText(index)));
        if (list_->currentIndex() >= 0) view.current = static_cast<uint32_t>(list_->currentIndex());
    }

    QLabel* const label_;
    QComboBox* const list_;
};

} // namespace

const std::vector<kind_of_widget>& field_kinds() {
    static const std::vector<kind_of_widget> kinds{
        {label_impl::element_kind, &make_widget<label_widget>},
        {output_impl::element_kind, &make_widget<output_widget>},
        {multiline_output_impl::element_kind, &make_widget<lines_widget>},
        {label_ex_impl::element_kind, &make_widget<figure_widget>},
        {dropdownex_impl::element_kind, &make_widget<choice_widget>},
        {file_input_impl::element_kind, &make_widget<path_field>}};
    return kinds;
}

} // namespace vestra::qt
