#include "gui/qt/qt_controls.h"

#include "gui/qt/qt_entry.h"
#include "gui/qt/qt_level_meter.h"
#include "gui/qt/qt_link.h"
#include "gui/qt/qt_list_view.h"
#include "gui/qt/qt_make_control.h"
#include "gui/qt/qt_number_edit.h"
#include "gui/qt/qt_sound_view.h"
#include "gui/qt/qt_sound_view_peer.h"
#include "gui/qt/qt_text.h"
#include "gui/window_peer.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

/// A frame fills its place; what holds text is as tall as the text needs, around the middle of its place.
bool FillsItsPlace(const QWidget* widget) {
    return qobject_cast<const QGroupBox*>(widget) || dynamic_cast<const LQtListWidget*>(widget) ||
           dynamic_cast<const LQtSoundView*>(widget);
}

bool IsInput(LControlKind kind) {
    return kind == LControlKind::Edit || kind == LControlKind::NumberEdit ||
           kind == LControlKind::NumberText || kind == LControlKind::Chooser;
}

template <class Widget>
void SetMarkedText(Widget& widget, LQtLetters& letters, const QString& text) {
    letters.Release(widget.text());
    widget.setText(letters.Mark(text));
}

/// Tab leads to the checked one of several radio buttons; the arrow keys lead on from there.
void CheckButton(QAbstractButton& button, bool checked) {
    button.setChecked(checked);
    if (!checked || !qobject_cast<QRadioButton*>(&button))
        return;
    for (auto* each : button.parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
        each->setFocusPolicy(each == &button ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

LQtControls::LQtControls(QWidget* parentWidget, double pixels, LWindowEvents& windowEvents)
    : parent(parentWidget),
      unit(pixels),
      events(windowEvents) {}

QWidget* LQtControls::Find(int id) const {
    const auto found = widgets.find(id);
    return found == widgets.end() ? nullptr : found->second;
}

void LQtControls::Register(int id, QWidget* widget) {
    widgets[id] = widget;
    widget->setObjectName(QString::number(id));
    Connect(id, widget);
}

void LQtControls::Connect(int id, QWidget* widget) {
    const auto use = [this, id] { events.ControlUsed(id); };
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        QObject::connect(button, &QAbstractButton::clicked, button, use);
    if (auto* entry = dynamic_cast<LQtEntry*>(widget)) {
        entry->onStep = [this, id](int steps) { events.ValueStepped(id, steps); };
        QObject::connect(entry, &QLineEdit::textEdited, entry, use);
    }
    if (auto* link = dynamic_cast<LQtLink*>(widget))
        QObject::connect(link, &QLabel::linkActivated, link, use);
    if (auto* sound = dynamic_cast<LQtSoundView*>(widget))
        sound->onMenu = use;
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        QObject::connect(combo, &QComboBox::activated, combo, use);
    if (auto* slider = qobject_cast<QSlider*>(widget)) {
        QObject::connect(slider, &QSlider::valueChanged, slider, use);
        QObject::connect(slider, &QSlider::sliderReleased, slider, use);
    }
}

QWidget* LQtControls::Make(const LControlLayout& control) {
    if (control.kind == LControlKind::NumberEdit)
        numberEdit = control.id;
    if (control.kind != LControlKind::NumberText)
        return MakeControl(control, parent);
    auto* number = dynamic_cast<LQtNumberEdit*>(Find(numberEdit));
    return number ? number->GetLine() : nullptr;
}

/// An input is called by the text before it, and reached by that one's letter.
void LQtControls::NameBy(QWidget* before, QWidget* input) {
    if (auto* label = qobject_cast<QLabel*>(before)) {
        label->setBuddy(input);
        label->setText(letters.Mark(label->text()));
    } else if (const auto* button = qobject_cast<QAbstractButton*>(before)) {
        input->setAccessibleName(LQtLetters::Strip(button->text()));
    } else if (before) {
        input->setAccessibleName(before->accessibleName());
    }
}

void LQtControls::Add(const LControlLayout& control) {
    QWidget* widget = Make(control);
    if (!widget)
        return;
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        button->setText(letters.Mark(button->text()));
    if (IsInput(control.kind))
        NameBy(lastAdded, widget);
    lastAdded = widget;
    if (control.kind == LControlKind::Group)
        widget->lower(); // its frame stands around controls that are not its own
    Register(control.id, widget);
    if (control.kind != LControlKind::NumberText)
        Place(control.id, control.rect);
}

void LQtControls::Place(int id, const LRect& rect) {
    QWidget* widget = Find(id);
    if (!widget || widget->parentWidget() != parent)
        return;
    const auto scale = [this](int length) { return static_cast<int>(std::lround(length * unit)); };
    const int height = scale(rect.height);
    const int tall = FillsItsPlace(widget) ? height : std::max(height, widget->sizeHint().height());
    const int above = rect.height == 0 ? 0 : (tall - height) / 2;
    const QRect place(scale(rect.x), scale(rect.y) - above, scale(rect.width), tall);
    widget->setGeometry(QStyle::visualRect(parent->layoutDirection(), parent->rect(), place));
}

LRect LQtControls::GetPlace(int id) const {
    const QWidget* widget = Find(id);
    if (!widget)
        return {};
    const auto scale = [this](int length) { return static_cast<int>(std::lround(length / unit)); };
    const QRect place = QStyle::visualRect(parent->layoutDirection(), parent->rect(), widget->geometry());
    return {scale(place.x()), scale(place.y()), scale(place.width()), scale(place.height())};
}

void LQtControls::SetText(int id, const std::string& text) {
    QWidget* widget = Find(id);
    if (auto* link = dynamic_cast<LQtLink*>(widget))
        link->SetLinkText(ToQt(text));
    else if (auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
        SetMarkedText(*label, letters, ToQt(text));
    else if (label)
        label->setText(ToQt(text));
    else if (auto* edit = qobject_cast<QLineEdit*>(widget))
        edit->setText(ToQt(text));
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        SetMarkedText(*button, letters, ToQt(text));
    else if (auto* group = qobject_cast<QGroupBox*>(widget))
        group->setTitle(ToQt(text));
}

std::string LQtControls::GetText(int id) const {
    const QWidget* widget = Find(id);
    if (const auto* link = dynamic_cast<const LQtLink*>(widget))
        return FromQt(link->GetLinkText());
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return FromQt(label->buddy() ? LQtLetters::Strip(label->text()) : label->text());
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return FromQt(edit->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return FromQt(LQtLetters::Strip(button->text()));
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return FromQt(combo->currentText());
    return {};
}

void LQtControls::Enable(int id, bool enabled) {
    if (QWidget* widget = Find(id))
        widget->setEnabled(enabled);
}

void LQtControls::SetToolTip(int id, const std::string& text) {
    if (QWidget* widget = Find(id))
        widget->setToolTip(ToQt(text));
}

void LQtControls::SetName(int id, const std::string& name) {
    if (QWidget* widget = Find(id))
        widget->setAccessibleName(ToQt(name));
}

void LQtControls::MarkWrong(int id, bool wrong) {
    if (auto* entry = dynamic_cast<LQtEntry*>(Find(id)))
        entry->MarkWrong(wrong);
}

void LQtControls::SetFocus(int id) {
    QWidget* widget = Find(id);
    if (!widget)
        return;
    widget->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        edit->selectAll();
}

void LQtControls::SetRange(int id, int least, int most) {
    QWidget* widget = Find(id);
    const QSignalBlocker blocker(widget);
    if (auto* number = dynamic_cast<LQtNumberEdit*>(widget))
        number->SetRange(least, most);
    else if (auto* slider = qobject_cast<QSlider*>(widget))
        slider->setRange(least, most);
}

void LQtControls::SetValue(int id, int value) {
    QWidget* widget = Find(id);
    const QSignalBlocker blocker(widget);
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        CheckButton(*button, value != 0);
    else if (auto* number = dynamic_cast<LQtNumberEdit*>(widget))
        number->SetValue(value);
    else if (auto* bar = qobject_cast<QProgressBar*>(widget))
        bar->setValue(value);
    else if (auto* slider = qobject_cast<QSlider*>(widget))
        slider->setValue(value);
    else if (auto* combo = qobject_cast<QComboBox*>(widget))
        combo->setCurrentIndex(value);
}

int LQtControls::GetValue(int id) const {
    const QWidget* widget = Find(id);
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->isChecked() ? 1 : 0;
    if (const auto* number = dynamic_cast<const LQtNumberEdit*>(widget))
        return number->GetValue();
    if (const auto* bar = qobject_cast<const QProgressBar*>(widget))
        return bar->value();
    if (const auto* slider = qobject_cast<const QSlider*>(widget))
        return slider->value();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentIndex();
    return 0;
}

bool LQtControls::IsHeld(int id) const {
    const auto* slider = qobject_cast<const QSlider*>(Find(id));
    return slider && slider->isSliderDown();
}

void LQtControls::SetChoices(int id, const std::vector<std::string>& choices) {
    auto* combo = qobject_cast<QComboBox*>(Find(id));
    if (!combo)
        return;
    const QSignalBlocker blocker(combo);
    combo->clear();
    for (const std::string& choice : choices)
        combo->addItem(ToQt(choice));
}

void LQtControls::SetLevels(int id, const LMeterLevels& levels) {
    if (auto* meter = dynamic_cast<LQtLevelMeter*>(Find(id)))
        meter->SetLevels(levels);
}

void LQtControls::SetValueText(int id, const std::string& text) {
    if (QWidget* widget = Find(id))
        widget->setAccessibleDescription(ToQt(text));
}

std::unique_ptr<LListViewPeer> LQtControls::CreateListViewPeer(int id, LListViewEvents& listEvents) {
    return std::make_unique<LQtListView>(*dynamic_cast<LQtListWidget*>(Find(id)), listEvents, unit);
}

std::unique_ptr<LSoundViewPeer> LQtControls::CreateSoundViewPeer(int id) {
    return std::make_unique<LQtSoundViewPeer>(*dynamic_cast<LQtSoundView*>(Find(id)), unit);
}
