#include "gui/qt/qt_sound_view.h"
#include "gui/sound_view_peer.h"
#include "support/qt_windows.h"
#include "support/test_window.h"

#include <QClipboard>
#include <QImage>
#include <QWheelEvent>

namespace {

using QtSoundView = QtWindows;

constexpr int Sound = 300;

/// A second of silence with a line at 440 Hz.
LShownSoundPtr MakeSound() {
    auto sound = std::make_shared<LShownSound>();
    sound->rate = 1000;
    sound->seconds = 1;
    sound->hzPerBin = 10;
    sound->channels.resize(1);
    sound->channels[0].samples.assign(1000, 0);
    sound->channels[0].spectrum.assign(51, {-100});
    sound->channels[0].spectrum[44] = {-20};
    return sound;
}

TEST_F(QtSoundView, IsReadAndZoomedByPointerWheelAndKeys) {
    TestWindow window(toolkit);
    std::unique_ptr<LSoundViewPeer> peer;
    window.init = [&] {
        window.MakeList(1);
        window.GetControls().Add({Sound, LControlKind::Sound, "", {}});
        window.GetControls().Place(Sound, {0, 60, 250, 200});
        peer = window.GetControls().CreateSoundViewPeer(Sound);
        peer->SetLook({.hasWave = false, .isLinear = true});
        peer->Show(MakeSound());
    };
    Run(window, [&] {
        auto* widget = dynamic_cast<LQtSoundView*>(Control<QWidget>(Sound));
        ASSERT_TRUE(widget);
        const auto axis = [&] { return widget->GetView().GetAxis(LPlot::Spectrum); };
        const auto spoken = [&] { return widget->GetSpoken().toStdString(); };
        const auto turn = [&](const QPoint& at, int angle) {
            QWheelEvent wheel(at, widget->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(widget, &wheel);
        };
        QPoint line; // in the middle of where it is read
        for (int x = 0; x < widget->width(); ++x) {
            QTest::mouseMove(widget, {x, 120});
            if (spoken().starts_with("440.0 Hz, -20.0 dBFS"))
                line = {x - 4, 120};
        }
        ASSERT_FALSE(line.isNull());
        turn(line, 480);
        EXPECT_NEAR(axis().to - axis().from, 500 / 1.25 / 1.25 / 1.25 / 1.25, 1e-6);
        EXPECT_TRUE(spoken().starts_with("440.0 Hz")) << "stays below the pointer";
        const double from = axis().from;
        QTest::mousePress(widget, Qt::LeftButton, {}, line);
        QTest::mouseMove(widget, line + QPoint(10, 0));
        QTest::mouseRelease(widget, Qt::LeftButton, {}, line + QPoint(10, 0));
        EXPECT_LT(axis().from, from) << "moved with the pointer";
        EXPECT_TRUE(spoken().starts_with("440.0 Hz")) << spoken();
        QTest::mouseDClick(widget, Qt::LeftButton, {}, line);
        EXPECT_EQ(axis(), (LAxis{0, 500, false}));

        window.commands.clear();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), widget);
        QTest::keyClick(widget, Qt::Key_End);
        EXPECT_TRUE(spoken().starts_with("500.0 Hz, -100.0 dBFS")) << spoken();
        QTest::keyClick(widget, Qt::Key_Left);
        QTest::keyClick(widget, Qt::Key_Plus);
        EXPECT_NEAR(axis().to - axis().from, 500 / 1.5, 1e-6);
        QTest::mouseClick(widget, Qt::RightButton, {}, line);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, line, widget->mapToGlobal(line));
        QApplication::sendEvent(widget, &menu);
        EXPECT_EQ(window.commands, Ints{Sound});

        peer->CopyCsv();
        EXPECT_TRUE(QApplication::clipboard()->text().startsWith("hz,dbfs\n"));
        peer->CopyPicture();
        const QImage picture = QApplication::clipboard()->image();
        EXPECT_EQ(picture.size(), widget->size() * widget->devicePixelRatio());
    });
}

} // namespace
