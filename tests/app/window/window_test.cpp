#include "app/window/window_tables.h"
#include "support/app_window.h"
#include "support/qt_windows.h"
#include "support/test_window.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QSlider>
#include <QToolBar>
#include <QTreeWidget>

namespace {

/// The program's window as the user sees it, with an output of the test's own.
class ShownWindow : public QtWindows {
protected:
    void RunProgram(const std::function<void()>& user) {
        const char* const arguments[] = {"sonvire"};
        const auto listNames = [] { return Texts{"Hall", "Studio"}; };
        MainDialog window(toolkit, 1, arguments, {.open = output.Opener(), .listNames = listNames});
        Run(window, user);
    }
    /// How many pixels of its bars a meter lights in a colour.
    static int CountLit(QWidget* meter, const QColor& colour) {
        const QImage image = meter->grab().toImage();
        int lit = 0;
        for (int i = 0; i < image.width() * image.height(); ++i)
            lit += image.pixelColor(i % image.width(), i / image.width()) == colour ? 1 : 0;
        return lit;
    }
    /// What a screen reader calls it, and says of its value.
    static QString SpokenOf(QWidget* control) {
        const auto* said = QAccessible::queryAccessibleInterface(control);
        return said->text(QAccessible::Name) + " " + said->text(QAccessible::Value);
    }
    /// However busy the machine is.
    static bool Wait(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 30'000); }

    const Forgotten forgotten;
    TestOutput output;
};

TEST_F(ShownWindow, ShowsEveryItemWhole) {
    const std::function<void(QWidget&)> checkBox = [](QWidget& box) {
        EXPECT_EQ(box.maximumSize(), box.minimumSize()) << "nothing in it can grow";
        for (const QWidget* child : box.findChildren<QWidget*>("", Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(box.rect().contains(child->geometry())) << child->metaObject()->className();
        dynamic_cast<QDialog&>(box).reject();
    };
    Setting::WindowMaximized.Set(true);
    RunProgram([&checkBox] {
        EXPECT_EQ(Main()->windowTitle(), "Untitled[*] - Sonvire");
        EXPECT_FALSE(Main()->isWindowModified());
        QTest::mouseClick(ToolButton("Square"), Qt::LeftButton);
        EXPECT_TRUE(Main()->isWindowModified());
        EXPECT_TRUE(Main()->isMaximized());
        EXPECT_EQ(QApplication::focusWidget(), Control<QTreeWidget>(ControlList));
        int pictures = 0;
        for (const QToolButton* button : Main()->findChildren<QToolButton*>()) {
            if (!button->defaultAction()) // one of the tool bar itself
                continue;
            ++pictures;
            EXPECT_FALSE(button->accessibleName().isEmpty());
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_FALSE(button->icon().pixmap(16, 16).toImage().isNull());
        }
        EXPECT_EQ(pictures, 4 + 16);
        Then(checkBox);
        QTest::mouseClick(ToolButton("Preferences"), Qt::LeftButton);
    });
}

TEST_F(ShownWindow, StandsAsItIsLaidOutAndEditsItsRows) {
    Setting::WindowWidth.Set(700);
    Setting::WindowHeight.Set(80); // too small
    int frame = 0;
    RunProgram([&frame] {
        EXPECT_TRUE(Wait([] { return Main()->frameGeometry().width() == 700; }));
        frame = Main()->frameGeometry().width() - Main()->width();
        EXPECT_GE(Main()->frameGeometry().height(), 100);
        Main()->resize(1000, 480);
        auto* list = Control<QTreeWidget>(ControlList);
        const QRect content = list->parentWidget()->rect(),
                    bar = Control<QToolBar>(ControlSmallToolBar)->geometry();
        EXPECT_EQ(bar, QRect(0, 0, content.width(), bar.height()));
        EXPECT_EQ(list->geometry().topLeft(), QPoint(0, bar.height()));
        EXPECT_LT(list->geometry().bottom(), content.height() / 2) << "it takes what its one row needs";
        const auto* headline = Control<QLabel>(ControlHeadline);
        const auto* hint = Control<QLabel>(ControlKeyHint);
        EXPECT_GT(headline->y(), list->geometry().bottom());
        Main()->resize(1000, 480 - content.height() + hint->geometry().bottom());
        EXPECT_EQ(hint->y(), list->parentWidget()->height())
            << "one pixel is missing, and it is out of sight";
        EXPECT_GT(Control<QLabel>(ControlStatusText)->width(), Control<QLabel>(ControlPosition)->width())
            << "the text takes what the others leave";
        EXPECT_GE(Control<QLabel>(ControlPosition)->width(), 80) << "although less stands in it";
        Control<QLabel>(ControlFormat)->setText("192 kHz, float, -24.1 dB"); // which goes first
        Main()->resize(480, 360);
        QApplication::processEvents();
        const QRect fields = Control<QWidget>(ControlLevels)->parentWidget()->rect();
        for (const int id :
             {ControlPosition, ControlLevels, ControlDevice, ControlMute, ControlVolume, ControlVolumeText}) {
            const auto* field = Control<QWidget>(id);
            EXPECT_TRUE(fields.contains(field->geometry())) << id;
            EXPECT_GE(field->width(), field->minimumSizeHint().boundedTo({76, 99}).width()) << id;
        }
        EXPECT_EQ(Main()->width(), 480);
        EXPECT_EQ(Control<QSlider>(ControlVolume)->width(), 100) << "others have given way";
        Main()->resize(1000, 480);

        EXPECT_EQ(list->headerItem()->text(0) + list->headerItem()->text(1), "Tone DataValues");
        EXPECT_EQ(list->currentIndex().row(), 0);
        QTest::keyClick(list, Qt::Key_PageUp);
        EXPECT_EQ(list->topLevelItem(0)->text(1), "2000.00Hz");
        EXPECT_EQ(headline->text(), "2000 Hz · B6 +21 ct");
        EXPECT_EQ(list->toolTip(), "Tone details (double click to modify)");
    });
    EXPECT_EQ(Setting::WindowWidth.Get(), 1000 + frame) << "kept of the whole frame";
}

TEST_F(ShownWindow, FollowsItsSettingsAndWhatPlays) {
    constexpr std::uint32_t Both = 0x10001;
    Setting::OutDevice.Set("unplugged");
    Setting::PlayVolume.Set(-6);
    const QColor calm(0x1f, 0x8a, 0x3b), loud(0xb8, 0x6e, 0x00);
    RunProgram([&] {
        auto* chooser = Control<QComboBox>(ControlDevice);
        EXPECT_EQ(chooser->currentText(), "unplugged") << "before it is known what there is";
        EXPECT_TRUE(Wait([&] { return chooser->count() == 4; }));
        EXPECT_EQ(chooser->currentText(), "unplugged (not there)") << "behind the default, Hall and Studio";
        EXPECT_EQ(chooser->toolTip(), "Output device");

        auto* volume = Control<QSlider>(ControlVolume);
        EXPECT_EQ(volume->minimum(), -36);
        EXPECT_EQ(volume->maximum(), 13);
        EXPECT_EQ(volume->value(), -6);
        EXPECT_EQ(SpokenOf(volume), "Volume -4.6 dB"); // 150 of 256
        for (QWidget* control : {static_cast<QWidget*>(volume), static_cast<QWidget*>(chooser)})
            EXPECT_EQ(control->focusPolicy(), Qt::TabFocus) << "a click leaves the keyboard in the list";
        auto* meter = Control<QWidget>(ControlLevels);
        EXPECT_EQ(CountLit(meter, calm), 0);
        for (const char* button : {"Finite duration", "Play"})
            QTest::mouseClick(ToolButton(button), Qt::LeftButton);
        EXPECT_TRUE(Wait([&] { return output.queuedFrames >= 8820; }));
        output.Take(8820);
        EXPECT_TRUE(Wait([&] { return CountLit(meter, calm) > 0; }));
        EXPECT_EQ(CountLit(meter, loud), 0);
        EXPECT_TRUE(Wait([&] { return SpokenOf(meter) == "Level -17 dBFS"; }))
            << "-12.04 and what the volume takes";
        EXPECT_TRUE(Wait([] { return Control<QLabel>(ControlPosition)->text() == "00:00.2 / 00:01.0"; }));
        EXPECT_EQ(SpokenOf(Control<QLabel>(ControlFormat)), "What is played 44.1 kHz, 16 bits");
        volume->setSliderDown(true);
        volume->setValue(-20);
        EXPECT_TRUE(Wait([&] { return output.volume == 80 * Both; })) << "heard at once";
        EXPECT_EQ(Control<QLabel>(ControlVolumeText)->text(), "-10.1 dB"); // 80 of 256
        EXPECT_EQ(Setting::PlayVolume.Get(), -6) << "kept once it is let go";
        volume->setSliderDown(false);
        EXPECT_EQ(Setting::PlayVolume.Get(), -20);
        QTest::mouseClick(Control<QToolButton>(ControlMute), Qt::LeftButton);
        EXPECT_EQ(SpokenOf(volume) + " " + QString::number(volume->value()), "Volume muted -36");
        EXPECT_TRUE(Control<QToolButton>(ControlMute)->isChecked());
        QTest::mouseClick(Control<QToolButton>(ControlMute), Qt::LeftButton);
        EXPECT_EQ(Setting::PlayVolume.Get(), -20) << "as before";
        QTest::mouseDClick(volume, Qt::LeftButton);
        EXPECT_EQ(Control<QLabel>(ControlVolumeText)->text(), "0.0 dB");
        EXPECT_EQ(output.opened, 1) << "the volume changes without a restart";
        QWheelEvent wheel({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(chooser, &wheel);
        EXPECT_EQ(chooser->currentIndex(), 3) << "which has not the keyboard";
        QTest::keyClick(chooser, Qt::Key_Up);
        EXPECT_TRUE(Wait([&] { return output.opened == 2; })) << "another output is heard at once";
        EXPECT_EQ(Setting::OutDevice.Get(), "Studio");
        QTest::keyClick(Control<QTreeWidget>(ControlList), Qt::Key_Escape);
        EXPECT_EQ(Control<QLabel>(ControlPosition)->text() + Control<QLabel>(ControlFormat)->text(),
                  "00:00.0");
        EXPECT_TRUE(Wait([&] { return CountLit(meter, calm) == 0; })) << "it falls";

        const auto lamp = [meter] { return meter->grab().toImage().pixelColor(meter->width() - 3, 5); };
        EXPECT_NE(lamp(), loud);
        for (QAction* action : Main()->findChildren<QAction*>())
            if (action->data() == CommandSixteenTones)
                action->trigger();
        QTest::keyClick(Control<QTreeWidget>(ControlList), Qt::Key_Space);
        EXPECT_TRUE(Wait([&] { return output.opened == 3 && output.queuedFrames >= 8820; }));
        output.Take(8820);
        EXPECT_TRUE(Wait([&] { return lamp() == loud; })) << "sixteen sines are four times too loud";
        EXPECT_EQ(SpokenOf(meter), "Level 0 dBFS, Limiter -12.0 dB");
    });
}

TEST_F(ShownWindow, KeysReachTheirCommandsAlthoughTheListHasTheKeyboard) {
    static constexpr LStatusItem status[] = {{ControlDevice, LStatusKind::Chooser, "Device", "device"}};
    TestWindow window{toolkit};
    window.init = [&] {
        window.MakeList(3);
        window.SetKeys(window, GetMainKeys());
        window.SetStatusBar(status);
        window.SetChoices(ControlDevice, {"one", "two"});
        window.list->SetCurrent(0);
        window.list->SetFocus();
    };
    Run(window, [&] {
        using enum Qt::Key;
        constexpr Qt::KeyboardModifiers Plain, Pad = Qt::KeypadModifier, Ctrl = Qt::ControlModifier,
                                               Shift = Qt::ShiftModifier;
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, Ints> cases[] = {
            {Key_F1, Plain, {-LCommandHelp}},
            {Key_Space, Plain, {CommandPlay}},
            {Key_Escape, Plain, {CommandStop}},
            {Key_S, Ctrl, {CommandSave}},
            {Key_W, Ctrl, {CommandCloseWindow}},
            {Key_Plus, Pad, {CommandIncrease}},
            {Key_Plus, Plain, {CommandIncrease}},
            {Key_Plus, Shift, {CommandIncrease}}, // as it is typed on many keyboards
            {Key_Equal, Plain, {CommandIncrease}},
            {Key_Minus, Plain, {CommandDecrease}},
            {Key_Minus, Pad, {CommandDecrease}},
            {Key_O, Ctrl, {CommandLoadTone}},
            {Key_Z, Ctrl, {CommandUndo}},
            {Key_Z, Ctrl | Shift, {CommandRedo}},
            {Key_Y, Ctrl, {CommandRedo}},
            {Key_W, Ctrl | Shift, {}},
            {Key_Plus, Ctrl, {}},
            {Key_Return, Shift, {}},
            {Key_PageUp, Plain, {CommandIncreaseLarge}},
            {Key_PageDown, Plain, {CommandDecreaseLarge}},
            {Key_Return, Plain, {CommandEditValue}},
            {Key_Enter, Pad, {CommandEditValue}},
            {Key_S, Plain, {}},
            {Key_Space, Qt::AltModifier, {}},
            {Key_Down, Plain, {Selection}}}; // what is no key of ours is the list's
        auto* list = Control<QTreeWidget>(List);
        EXPECT_EQ(QApplication::focusWidget(), list);
        for (const auto& [key, modifiers, commands] : cases) {
            window.commands.clear();
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
            EXPECT_EQ(window.commands, commands) << key;
        }

        window.commands.clear();
        const auto space = [list](QEvent::Type type, quint64 time, bool repeats = false) {
            QKeyEvent event(type, Qt::Key_Space, {}, " ", repeats);
            event.setTimestamp(time);
            QApplication::sendEvent(list, &event);
        };
        space(QEvent::KeyPress, 6, true);
        space(QEvent::KeyRelease, 7);
        space(QEvent::KeyPress, 7); // as of a key that is held on a busy machine
        EXPECT_TRUE(window.commands.empty());
        EXPECT_EQ(window.list->GetSelection(), Ints{1}) << "nor does the list get it";
        space(QEvent::KeyPress, 8);
        EXPECT_EQ(window.commands, Ints{CommandPlay});
        window.commands.clear();

        auto* chooser = Control<QComboBox>(ControlDevice);
        chooser->setFocus();
        QTest::keyClick(chooser, Qt::Key_Escape);
        QTest::keyClick(chooser, Qt::Key_Down);
        QTest::keyClick(chooser, Qt::Key_PageDown);
        EXPECT_EQ(window.commands, (Ints{CommandStop, ControlDevice}))
            << "keys that step a chooser stay with it";
        EXPECT_EQ(window.GetValue(ControlDevice), 1);
    });
}

} // namespace
