// Widgets for elements that are pressed: buttons, tools, check boxes, radio buttons, and the button row of a
// window.
#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "host/toolkit/button.h"
#include "host/toolkit/button_box.h"
#include "host/toolkit/checkbox.h"
#include "host/toolkit/radiobutton.h"
#include "host/toolkit/tool.h"
#include "reference_host/qt/element_kinds.h"
#include "reference_host/qt/pictures.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::element_view;
using toolkit::mark;

QString on_button(const QString& words) {
    // Buttons and boxes do not wrap their text, and a long one would make the whole window wide.
    constexpr qsizetype widest = 64;
    QString lines;
    qsizetype length = 0;
    for (const QString& word : words.split(u' ')) {
        if (length > 0) lines += length + word.size() > widest ? u'\n' : u' ';
        if (lines.endsWith(u'\n')) length = 0;
        lines += word;
        length += word.size() + 1;
    }
    // Otherwise "&" would underline the next letter and disappear.
    return lines.replace(u'&', QStringLiteral("&&"));
}

QString off_button(QString words) {
    return words.replace(QStringLiteral("&&"), QStringLiteral("&")).replace(u'\n', u' ');
}

namespace {

class button_widget final : public widget_for<button_impl, QPushButton> {
public:
    button_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QPushButton(parent)) {
        own_->setText(on_button(text_of<&button_impl::caption>()));
        own_->setToolTip(text_of<&button_impl::hint>());
        // Enter must not press a button while the user types in a field.
        own_->setAutoDefault(false);
        QObject::connect(own_, &QPushButton::clicked,
                         [this] { send([this] { ask<&button_impl::click>(); }); });
    }

private:
    void read(element_view& view) const override {
        view.caption = entered(off_button(own_->text()));
        view.text = entered(own_->toolTip());
    }
};

class check_widget final : public widget_for<checkbox_impl, QCheckBox> {
public:
    check_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QCheckBox(parent)) {
        own_->setText(on_button(text_of<&checkbox_impl::caption>()));
        // `clicked` is not emitted when the state is set by code, so showing a state sends no event.
        QObject::connect(own_, &QCheckBox::clicked, [this](bool on) {
            send([&] {
                ask<&checkbox_impl::state_entered>(on ? checkbox_state::checked : checkbox_state::unchecked);
            });
            refresh();
        });
    }

private:
    void show() override { own_->setChecked(ask<&checkbox_impl::state>() == checkbox_state::checked); }
    void read(element_view& view) const override {
        view.caption = entered(off_button(own_->text()));
        view.check = own_->isChecked() ? mark::on : mark::off;
    }
};

// The bundle manages the group, so the widget must not switch any button off.
class radio_widget final : public widget_for<radiobutton_impl, QRadioButton> {
public:
    radio_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QRadioButton(parent)) {
        // Qt would otherwise uncheck the other buttons inside the same widget.
        own_->setAutoExclusive(false);
        own_->setText(on_button(text_of<&radiobutton_impl::caption>()));
        QObject::connect(own_, &QRadioButton::clicked, [this] {
            send([this] { ask<&radiobutton_impl::pressed>(); });
            refresh();
        });
    }

private:
    void show() override { own_->setChecked(ask<&radiobutton_impl::checked>()); }
    void read(element_view& view) const override {
        view.caption = entered(off_button(own_->text()));
        view.check = own_->isChecked() ? mark::on : mark::off;
    }
};

class tool_widget final : public widget_for<tool_impl, QToolButton> {
public:
    tool_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QToolButton(parent)) {
        const QString caption = text_of<&tool_impl::caption>(), hint = text_of<&tool_impl::hint>();
        own_->setObjectName(text_of<&tool_impl::id>());
        own_->setText(caption);
        own_->setToolTip(hint.isEmpty() ? caption : hint);
        own_->setAccessibleName(caption);
        // The tool tip may be the caption; this keeps the hint by itself, for screen readers and for `read`.
        own_->setAccessibleDescription(hint);
        own_->setAutoRaise(true);
        own_->setFocusPolicy(Qt::StrongFocus);
        const QIcon icon =
            icon_told([this](masked_bitmap_visitor visitor) { ask<&tool_impl::image>(visitor); });
        own_->setIcon(icon);
        // In its own size: icons are pixel pictures and would be blurred.
        if (!icon.isNull()) own_->setIconSize(icon.availableSizes().front());
        own_->setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
        QObject::connect(own_, &QToolButton::clicked, [this] { send([this] { ask<&tool_impl::click>(); }); });
    }

private:
    void read(element_view& view) const override {
        view.id = entered(own_->objectName());
        view.caption = entered(own_->text());
        view.text = entered(own_->accessibleDescription());
    }
};

constexpr const char* code_property = "code";

class box_widget final : public widget_for<button_box_impl, QWidget> {
public:
    box_widget(element_widgets& all, const element& live, QWidget* parent)
        : widget_for(all, live, new QWidget(parent)) {
        auto* const row = new QHBoxLayout(own_);
        row->setContentsMargins({});
        row->addStretch();
        const uint32_t count = ask<&button_box_impl::entry_count>();
        for (uint32_t index = 0; index < count; ++index) {
            auto* const button =
                new QPushButton(on_button(text_of<&button_box_impl::entry_text>(index)), own_);
            const int32_t code = ask<&button_box_impl::entry_code>(index);
            button->setProperty(code_property, code);
            button->setAutoDefault(false);
            row->addWidget(button);
            buttons_.push_back(button);
            QObject::connect(button, &QPushButton::clicked, [this, code] { press(code); });
        }
    }

private:
    void press(int32_t code) {
        // Text that was typed but not confirmed counts, since pressing a button does not always move the
        // focus.
        all_.commit();
        bool closes = false;
        const auto click = [&] { send([&] { closes = ask<&button_box_impl::click>(code); }); };
        element_widgets& all = all_; // the event can destroy the window and this widget
        all.around_button(code, click);
        if (closes && all.on_close) all.on_close(code);
    }
    void read(element_view& view) const override {
        for (const QPushButton* each : buttons_)
            view.buttons.push_back(
                {entered(off_button(each->text())), each->property(code_property).toInt()});
    }

    std::vector<QPushButton*> buttons_;
};

} // namespace

const std::vector<kind_of_widget>& button_kinds() {
    static const std::vector<kind_of_widget> kinds{
        {button_impl::element_kind, &make_widget<button_widget>},
        {checkbox_impl::element_kind, &make_widget<check_widget>},
        {radiobutton_impl::element_kind, &make_widget<radio_widget>},
        {tool_impl::element_kind, &make_widget<tool_widget>},
        {button_box_impl::element_kind, &make_widget<box_widget>}};
    return kinds;
}

} // namespace vestra::qt
