#include "gui/numeric_edit.h"
#include "gui/process_dialog.h"
#include "gui/qt/qt_icon.h"
#include "support/qt_windows.h"
#include "support/temp_dir.h"
#include "support/test_window.h"
#include "sys/queued_notify.h"

#include <QAbstractSpinBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QWheelEvent>

#include <csignal>
#include <thread>

namespace {

/// A window of the test's own among those that Qt shows.
class QtGui : public QtWindows {
protected:
    void Run(const std::function<void()>& user) { QtWindows::Run(window, user); }
    static QTreeWidget* ListWidget() { return Control<QTreeWidget>(List); }
    static void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
        const QRect place = ListWidget()->visualItemRect(ListWidget()->topLevelItem(row));
        QTest::mouseClick(ListWidget()->viewport(), Qt::LeftButton, modifiers, place.center());
    }

    TestWindow window{toolkit};
};

TEST_F(QtGui, ToolBarItemsLookAsTheirStateIsBeforeTheCommandIsSent) {
    using enum LToolBarItemKind;
    static constexpr LToolBarItem items[] = {
        {Button, 5, "increase", "", "More"},    {Radio, 10, "sine", "", "Sine"},
        {Radio, 11, "square", "", "Square"},    {Toggle, 20, "stereo", "", "Stereo"},
        {Radio, 30, "constant", "", "Endless"}, {Radio, 31, "sweep", "", "Sweep"}};
    const char* const names[] = {"Sine", "Square", "Stereo", "Endless", "Sweep"};
    std::vector<std::string> seen;
    window.init = [&] {
        window.MakeList(1);
        window.SetToolBarSmallIcons(200, window.small, items);
        window.list->SetFocus();
        window.onCommand = [&](int command) {
            std::string pressed;
            for (const char* name : names)
                pressed += ToolButton(name)->isChecked() ? std::string(name) + " " : "";
            seen.push_back(pressed);
            // A window may refuse: what was pressed is then released again.
            if (command == 20 && seen.size() == 6)
                window.small.SetState(20, false);
        };
    };
    Run([&] {
        const char* const clicks[] = {"Stereo", "Sine",   "Sine",   "Sweep",
                                      "Stereo", "Stereo", "Square", "More"};
        for (const char* name : clicks)
            QTest::mouseClick(ToolButton(name), Qt::LeftButton);
        EXPECT_EQ(seen, (Texts{"Stereo ", "Sine Stereo ", "Sine Stereo ", "Sine Stereo Sweep ", "Sine Sweep ",
                               "Sine Stereo Sweep ", "Square Sweep ", "Square Sweep "}))
            << "a radio item releases those of its stretch only, and never itself";
        window.small.Enable(5, false);
        QTest::mouseClick(ToolButton("More"), Qt::LeftButton);
        EXPECT_EQ(seen.size(), std::size(clicks));
        EXPECT_EQ(QApplication::focusWidget(), ListWidget()) << "a click leaves the keyboard in the list";
    });
}

TEST_F(QtGui, TheListIsSelectedAsAList) {
    window.init = [this] { window.MakeList(6); };
    Run([this] {
        ClickRow(4);
        ClickRow(1, Qt::ControlModifier);
        ClickRow(2, Qt::ControlModifier);
        EXPECT_EQ(window.list->GetSelection(), (Ints{4, 1, 2}));
        window.list->SelectRows({0, 5});
        EXPECT_TRUE(ListWidget()->topLevelItem(5)->isSelected());
        EXPECT_FALSE(ListWidget()->topLevelItem(2)->isSelected());
        EXPECT_EQ(ListWidget()->currentIndex().row(), 0);
        ClickRow(0);
        window.commands.clear();
        QTest::mouseDClick(ListWidget()->viewport(), Qt::LeftButton, {},
                           ListWidget()->visualItemRect(ListWidget()->topLevelItem(0)).center());
        EXPECT_EQ(window.commands, Ints{DoubleClick});
    });
}

TEST_F(QtGui, TheListLooksAsItsColumnsAndRowsSay) {
    static constexpr LListColumn columns[] = {{.title = "Name"}, {.title = "Value", .values = true}};
    static constexpr LListColumn filling[] = {{.title = "File", .fills = true}, {.title = "Problem"}};
    const std::string longText(300, 'x');
    window.init = [this] { window.MakeList(0); };
    Run([&] {
        QTreeWidget* list = ListWidget();
        const auto show = [&](std::span<const LListColumn> as, const std::string& name,
                              const std::string& value) {
            window.list->DeleteAll();
            window.list->SetColumns(as);
            for (int row = 0; row < 2; ++row) {
                window.list->AppendRow(name);
                window.list->SetText(row, 1, value);
            }
            QApplication::processEvents();
        };
        const int room = list->viewport()->width();
        const auto text = [list](const char* words) { return list->fontMetrics().horizontalAdvance(words); };
        show(columns, "Sine 1 Frequency", "440.00Hz");
        EXPECT_GE(list->columnWidth(1), text("440.00Hz"));
        EXPECT_LT(list->columnViewportPosition(1), text("Sine 1 Frequency") + 50) << "next to the names";
        EXPECT_LT(list->columnViewportPosition(1) + list->columnWidth(1), room);
        EXPECT_NE(list->topLevelItem(0)->textAlignment(1) & Qt::AlignRight, 0);
        const int wide = list->columnWidth(1);
        window.list->SetText(0, 1, "1Hz");
        window.list->SetText(1, 1, "1Hz");
        QApplication::processEvents();
        EXPECT_EQ(list->columnWidth(1), wide) << "no jumps while a value is stepped";
        show(filling, "a", "gone");
        EXPECT_EQ(list->columnWidth(0) + list->columnWidth(1), room);
        EXPECT_GT(list->columnWidth(0), list->columnWidth(1));
        show(filling, longText, "No such file");
        EXPECT_EQ(list->columnWidth(0) + list->columnWidth(1), room);
        EXPECT_GT(list->columnWidth(1), text("No such file")) << "the problem is the last to be elided";
        show(filling, longText, longText);
        EXPECT_EQ(list->columnWidth(0), room / 2);
        EXPECT_EQ(list->columnWidth(1), room - room / 2);

        window.list->SetLook(0, {LRowShade::Shaded, LRowMark::Problem, "why"});
        window.list->SetText(0, 1, "gone");
        const QModelIndex marked = list->model()->index(0, 1);
        EXPECT_FALSE(marked.data(Qt::DecorationRole).value<QIcon>().isNull());
        EXPECT_EQ(marked.data(Qt::AccessibleTextRole), "Problem: gone");
        EXPECT_EQ(marked.data(Qt::ToolTipRole), "why");
        window.list->SetLook(1, {.shade = LRowShade::Plain});
        const QImage drawn = list->viewport()->grab().toImage();
        const auto colour = [&](int row) {
            return drawn.pixelColor(room - 2, list->visualItemRect(list->topLevelItem(row)).top() + 2);
        };
        EXPECT_EQ(colour(0), list->palette().color(QPalette::AlternateBase));
        EXPECT_EQ(colour(1), list->palette().color(QPalette::Base));

        const int row = list->visualItemRect(list->topLevelItem(0)).height();
        EXPECT_EQ(row, list->fontMetrics().height() + 16);
        EXPECT_EQ(window.list->GetHeight(), 2 * row + list->header()->height() + 2 * list->frameWidth());
    });
}

constexpr LMenuEntry Entries[] = {{101, "Play"}, {102, "Stop"},       {0},           {-118, "Loop & Play"},
                                  {-1, "Tones"}, {3001, "One & all"}, {3002, "Two"}, {-1}};

TEST_F(QtGui, AMenuPopsUpForTheListAndAnswersWhatWasChosen) {
    int chosen = -1;
    window.init = [&] {
        window.MakeList(3);
        window.onCommand = [&](int command) {
            if (command != RightClick)
                return;
            LMenu menu(window.list->CreatePopupMenu(), Entries);
            menu.Enable(102, false);
            menu.SetRadio(3001, 3002, 3002);
            menu.SetCheck(118, true);
            chosen = menu.Choose();
        };
    };
    Run([&] {
        const auto ask = [&](const std::function<void(QWidget&)>& act) {
            Then(act);
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
            QApplication::sendEvent(ListWidget(), &event);
            return chosen;
        };
        EXPECT_EQ(ask([](QWidget& menu) {
                      const QList<QAction*> actions = static_cast<QMenu&>(menu).actions();
                      EXPECT_FALSE(actions[1]->isEnabled());
                      EXPECT_TRUE(actions[3]->isChecked());
                      EXPECT_EQ(actions[3]->text(), "&Loop && Play");
                      const QList<QAction*> tones = actions[4]->menu()->actions();
                      EXPECT_FALSE(tones[0]->isChecked());
                      EXPECT_TRUE(tones[1]->isChecked());
                      QTest::keyClick(&menu, Qt::Key_Down);
                      QTest::keyClick(&menu, Qt::Key_Down); // over the one that can't be chosen
                      QTest::keyClick(&menu, Qt::Key_Return);
                  }),
                  118);
        EXPECT_EQ(ask([](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); }), 0);
    });
}

TEST_F(QtGui, AMenuBarMarksOnlyWhatItIsTold) {
    static constexpr LMenuEntry bar[] = {{-1, "Tone"},     {-118, "Loop"}, {2108, "Mono"},
                                         {2109, "Stereo"}, {-1, "Tones"},  {3001, "1"},
                                         {3002, "2"},      {-1},           {-1}};
    window.init = [&] {
        window.SetMenu(bar);
        window.GetMenu().SetRadio(2108, 2109, 2108);
        window.GetMenu().SetKeyText(118, "L");
    };
    Run([this] {
        const QList<QAction*> items = Main()->findChildren<QMenu*>().at(0)->actions();
        EXPECT_EQ(items[0]->text(), "&Loop\tL");
        EXPECT_TRUE(items[0]->isCheckable());
        for (QAction* item : items)
            item->trigger();
        EXPECT_EQ(window.commands, (Ints{118, 2108, 2109}));
        EXPECT_FALSE(items[0]->isChecked());
        EXPECT_TRUE(items[1]->isChecked());
        EXPECT_FALSE(items[2]->isChecked());

        QAction* tones = Main()->findChildren<QMenu*>().at(1)->menuAction();
        window.GetMenu().EnableRange(3001, 3002, false);
        EXPECT_FALSE(tones->isEnabled()) << "there is nothing in it to choose";
        window.GetMenu().Enable(3002, true);
        EXPECT_TRUE(tones->isEnabled());
    });
}

TEST_F(QtGui, TheEntryBoxSelectsItsTextAndTakesReturnAndEscape) {
    const std::tuple<Qt::Key, bool, const char*> cases[] = {{Qt::Key_Return, true, "441"},
                                                            {Qt::Key_Escape, false, "440.0 Hz"}};
    Run([&] {
        for (const auto& [key, ok, text] : cases) {

            LEntryRules rules{
                .read =
                    [](const std::string& typed) {
                        return LEntryReading{typed != "44", typed};
                    },
                .step = [](const std::string&, int steps) { return std::to_string(440 + steps); }};
            LNumericEdit box("Edit Value", "Sine 1 Frequency", "440.0 Hz", rules);
            Then([pressed = key](QWidget& dialog) {
                EXPECT_EQ(dialog.windowTitle(), "Edit Value");
                auto* input = Control<QLineEdit>(102, &dialog);
                EXPECT_EQ(input->selectedText(), "440.0 Hz");
                EXPECT_TRUE(input->hasFocus());
                Control<QAbstractButton>(LCommandCancel, &dialog)->setFocus();
                QTest::keyClick(&dialog, Qt::Key_S, Qt::AltModifier); // of the text before it
                EXPECT_TRUE(input->hasFocus());
                const auto tint = [input] { return input->palette().color(QPalette::Base); };
                const QColor plain = tint();
                QTest::keyClicks(input, "44");
                EXPECT_NE(tint(), plain);
                EXPECT_FALSE(Control<QAbstractButton>(LCommandOk, &dialog)->isEnabled());
                QTest::keyClicks(input, "2");
                EXPECT_EQ(tint(), plain);
                QTest::keyClick(input, Qt::Key_Down);
                EXPECT_EQ(input->selectedText(), "439") << "to be typed over";
                QWheelEvent wheel({5, 5}, input->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), {}, {},
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(input, &wheel);
                EXPECT_EQ(Control<QLabel>(103, &dialog)->text(), "441") << "read as it changes";
                QKeyEvent held(QEvent::KeyPress, pressed, {}, "", true);
                QApplication::sendEvent(input, &held);
                EXPECT_TRUE(dialog.isVisible()) << "as the key that has opened it may be";
                QTest::keyClick(input, pressed);
            });
            EXPECT_EQ(box.RunModal(window), ok);
            EXPECT_EQ(box.GetEntry(), text);
        }
    });
}

constexpr LControlLayout FormControls[] = {
    {101, LControlKind::Group, "Group", {20, 14, 360, 64}},
    {102, LControlKind::CheckBox, "Check", {32, 48, 300, 20}},
    {104, LControlKind::Radio, "First", {32, 90, 200, 20}},
    {107, LControlKind::Radio, "Second", {32, 122, 200, 20}},
    {108, LControlKind::NumberEdit, "", {250, 122, 58, 20}},
    {109, LControlKind::NumberText, "", {}},
    {110, LControlKind::List, "", {20, 150, 360, 100}, Widen | Heighten},
    {111, LControlKind::Link, "A < B", {140, 268, 100, 20}, MoveDown},
    {LCommandHelp, LControlKind::Button, "Help", {20, 264, 100, 0}, MoveDown},
    {LCommandOk, LControlKind::Button, "OK", {280, 264, 100, 0}, MoveDown | MoveRight},
};
constexpr LDialogLayout FormLayout{"Form", 400, 300, FormControls};
constexpr LKeyMapEntry FormKeys[] = {
    {LKeyDelete, 0, 120}, {LKeyAlt | LKeyDown, 0, 121}, {LKeyControl, 'z', 122}, {LKeyReturn, 0, 123}};

class Form : public LDialog {
public:
    Form() : LDialog(FormLayout) {}
    Texts seen;

    void Command(int command) override {
        if (command > 110)
            seen.push_back(command == 111 ? GetText(111) : std::to_string(command));
    }

private:
    void InitDialog() override {
        SetRange(108, 1, 12);
        SetValue(108, 11);
        CheckButton(107, true);
        SetKeys(FormKeys);
    }
    void CmHelp() override { seen.emplace_back("help"); }
    bool CmOk() override {
        seen.push_back(GetText(109));
        return GetText(109) != "13";
    }
};

TEST_F(QtGui, ADialogStandsAsItsTableSaysGrowsAndIsUsed) {
    Run([this] {
        Form form;
        Then([&](QWidget& dialog) {
            const double unit = dialog.width() / 400.0;
            const auto place = [&](int id) { return Control<QWidget>(id, &dialog)->geometry(); };
            const auto scaled = [unit](int x, int y) { return QPoint(qRound(x * unit), qRound(y * unit)); };
            for (const int id : Ints{101, 102, 104, 107, 108, 110, 111, LCommandHelp, LCommandOk}) {
                EXPECT_TRUE(dialog.rect().contains(place(id))) << id;
                EXPECT_GE(place(id).height(), Control<QWidget>(id, &dialog)->minimumSizeHint().height())
                    << id;
            }
            EXPECT_NEAR(place(108).center().y(), 132 * unit, 1) << "around the middle of its place";
            form.SetText(101, "Frame");
            EXPECT_EQ(Control<QGroupBox>(101, &dialog)->title(), "Frame");
            dialog.resize(dialog.width() + 100, dialog.height() + 50);
            EXPECT_EQ(place(110).height(), qRound(100 * unit) + 50);
            EXPECT_EQ(place(110).width(), qRound(360 * unit) + 100);
            EXPECT_EQ(place(LCommandOk).topLeft(), scaled(280, 264) + QPoint(100, 50));
            EXPECT_EQ(place(LCommandHelp).topLeft(), scaled(20, 264) + QPoint(0, 50));
            dialog.setLayoutDirection(Qt::RightToLeft);
            dialog.resize(dialog.width() + 10, dialog.height());
            EXPECT_EQ(dialog.width() - 1 - place(LCommandHelp).right(), qRound(20 * unit)) << "mirrored";
            dialog.setLayoutDirection(Qt::LeftToRight);

            const auto isChecked = [&](int id) {
                return QTest::qWaitFor([&form, id] { return form.GetValue(id) == 1; });
            };
            QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
            EXPECT_TRUE(isChecked(102)) << "by the letter of \"Check\"";
            QTest::keyClick(&dialog, Qt::Key_Tab);
            EXPECT_TRUE(Control<QWidget>(107, &dialog)->hasFocus()) << "the radio button that is checked";
            form.SetText(104, "Special"); // whose first letter "Second" has
            QTest::keyClick(&dialog, Qt::Key_P, Qt::AltModifier);
            EXPECT_EQ(form.GetText(104), "Special");
            EXPECT_TRUE(isChecked(104));
            EXPECT_EQ(form.GetValue(107), 0);
            auto* number = Control<QAbstractSpinBox>(108, &dialog);
            QTest::keyClick(number, Qt::Key_Up);
            QTest::keyClick(number, Qt::Key_Up);
            EXPECT_EQ(form.GetText(109), "12");
            number->selectAll();
            QTest::keyClicks(number, "13");
            QTest::keyClick(&dialog, Qt::Key_F1);
            QTest::keyClick(&dialog, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible()) << "OK was refused";
            form.SetText(109, "12");

            auto* link = Control<QWidget>(111, &dialog);
            QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(5, link->height() / 2));
            form.SetText(111, "C & D");
            auto* list = Control<QWidget>(110, &dialog);
            list->setFocus();
            for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Down, Qt::Key_Return})
                QTest::keyClick(list, key, key == Qt::Key_Down ? Qt::AltModifier : Qt::NoModifier);
            QTest::keyClick(number, Qt::Key_Delete); // which it has a use of its own for
            QTest::keyClick(number, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClick(&dialog, Qt::Key_Tab);
            EXPECT_TRUE(link->hasFocus());
            QTest::keyClick(link, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            QTest::keyClick(&dialog, Qt::Key_Tab);
            EXPECT_FALSE(link->hasFocus());
            QTest::mouseClick(Control<QAbstractButton>(LCommandOk, &dialog), Qt::LeftButton);
        });
        EXPECT_TRUE(form.RunModal(window));
        EXPECT_EQ(form.seen, (Texts{"help", "13", "A < B", "120", "121", "123", "122", "C & D", "12"}));
    });
}

/// A job of four steps, which the user meets in the third.
struct Job {
    LProcessResult ending;
    std::function<void(QWidget&)> user;
    int steps = 0;
};

LProcessResult Process(LProgressDialog& dialog, Job& job) {
    for (; job.steps < 4; ++job.steps) {
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        dialog.PBSetProgress(ProgressBar, (job.steps + 1) * 0.3333);
        if (job.steps != 2)
            continue;
        QWidget& shown = *QApplication::activeModalWidget();
        EXPECT_EQ(shown.findChild<QProgressBar*>(QString::number(ProgressBar))->value(), 99) << "not 100";
        job.user(shown);
        EXPECT_TRUE(shown.isVisible()) << "it goes when the job has returned";
    }
    return job.ending;
}

TEST_F(QtGui, AJobRunsUnderItsProgressDialogUntilItIsStopped) {
    using enum LProcessResult;
    const auto nothing = [](QWidget&) {};
    const auto cancel = [](QWidget& dialog) { Control<QPushButton>(LCommandCancel, &dialog)->click(); };
    const auto escape = [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    const auto close = [](QWidget& dialog) { dialog.close(); };
    Run([&] {
        for (Job job : {Job{Completed, nothing}, Job{Failed, nothing}, Job{Stopped, cancel},
                        Job{Stopped, escape}, Job{Stopped, close}}) {
            EXPECT_EQ(ProcessDialogRun(window, "Saving", job), job.ending == Completed);
            EXPECT_EQ(job.steps, job.ending == Stopped ? 3 : 4);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        }
    });
}

TEST_F(QtGui, FilesDropOnTheWindowOrBetweenTheRows) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/a b.tdf")});
    Ints lines; // where a line shows the place of the drop
    const auto findLine = [&lines] {
        QWidget* rows = ListWidget()->viewport();
        const QImage drawn = rows->grab().toImage();
        for (int y = 1; y < rows->height(); ++y)
            if (drawn.pixelColor(9, y) == rows->palette().color(QPalette::Highlight))
                return lines.push_back(y);
    };
    const auto drop = [&](QWidget* on, int y) {
        QDragEnterEvent enter(QPoint(9, y), Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(on, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDragMoveEvent move(QPoint(9, y), Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(on, &move);
        findLine();
        QDropEvent event(QPointF(9, y), Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(on, &event);
        QApplication::processEvents();
        findLine(); // there is none any more
    };
    window.init = [this] { window.MakeList(3); };
    Run([&] {
        EXPECT_FALSE(ListWidget()->acceptDrops());
        window.log.clear();
        drop(Main(), 50);
        window.list->EnableDragging();
        QTreeWidget* list = ListWidget();
        const QRect second = list->visualItemRect(list->topLevelItem(1));
        drop(list->viewport(), second.top() + 1);
        drop(list->viewport(), second.bottom() - 1);
        drop(list->viewport(), list->viewport()->height() - 1);
        EXPECT_EQ(window.log, (Texts{"drop /a b.tdf", "drop /a b.tdf before 1", "drop /a b.tdf before 2",
                                     "drop /a b.tdf before 3"}));
        EXPECT_EQ(lines, (Ints{second.top() - 1, second.bottom(), second.bottom() + second.height() - 1}));
    });
}

TEST_F(QtGui, TheEndOfTheSessionCancelsWhatIsOpenAndClosesTheWindow) {
    bool ok = true;
    LMessageAnswer answer = LMessageAnswer::Yes;
    Run([&] {
        EXPECT_FALSE(toolkit.IsSessionEnding());
        LNumericEdit box("Edit Value", "", "1");
        Then([](QWidget&) { raise(SIGTERM); });
        ok = box.RunModal(window);
        answer = LShowMessageBox("", "Save it?", LMessageButtons::YesNo);
        EXPECT_TRUE(QTest::qWaitFor([] { return !Main(); }));
    });
    EXPECT_TRUE(toolkit.IsSessionEnding());
    EXPECT_FALSE(ok);
    EXPECT_EQ(answer, LMessageAnswer::No);
    EXPECT_EQ(window.log.back(), "destroy");
}

TEST_F(QtGui, AMessageBoxAnswersWithWhatWasPressed) {
    using Buttons = LMessageButtons;
    using enum LMessageAnswer;
    const std::tuple<Buttons, Qt::Key, LMessageAnswer> cases[] = {
        {Buttons::Ok, Qt::Key_Escape, Ok},           {Buttons::OkFine, Qt::Key_Escape, Ok},
        {Buttons::OkCancel, Qt::Key_Return, Ok},     {Buttons::OkCancel, Qt::Key_Escape, Cancel},
        {Buttons::YesNo, Qt::Key_Return, Yes},       {Buttons::YesNo, Qt::Key_Escape, No},
        {Buttons::NoYes, Qt::Key_Return, No},        {Buttons::NoYes, Qt::Key_Escape, No},
        {Buttons::YesNoCancel, Qt::Key_Return, Yes}, {Buttons::YesNoCancel, Qt::Key_Escape, Cancel}};
    for (const auto& [buttons, key, answer] : cases) {
        Then([pressed = key](QWidget& box) {
            EXPECT_EQ(box.windowTitle() + static_cast<QMessageBox&>(box).text(), "Title<b>One\n\nTwo");
            QTest::keyClick(&box, pressed);
        });
        EXPECT_EQ(LShowMessageBox("Title", "<b>One\r\n\r\nTwo", buttons), answer);
    }
}

TEST_F(QtGui, NotificationsArriveInOrderAlsoUnderABoxThatOneOfThemShows) {
    struct Notified : LThreadQueuedNotify {
        void EvNotify() override { react(); }
        std::function<void()> react;
    };
    std::vector<std::string> log;
    Notified asks, next;
    auto gone = std::make_unique<Notified>();
    asks.react = [&] {
        Then([&](QWidget& box) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() == 2; }));
            box.close();
        });
        LShowMessageBox("", "", LMessageButtons::Ok);
        log.emplace_back("answered");
    };
    next.react = [&] {
        log.emplace_back("next");
        gone.reset();
    };
    gone->react = [&] { log.emplace_back("gone"); };
    std::thread([&] {
        for (LThreadQueuedNotify* each : {&asks, &next, gone.get(), &next})
            each->PostQueueNotify();
    }).join();
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() == 3; }));
    EXPECT_EQ(log, (std::vector<std::string>{"next", "next", "answered"}));
}

TEST_F(QtGui, AFileChooserStartsAsAsked) {
    const TempDir dir;
    WriteBytes(dir / "a.tdf", "");
    const std::vector<LFileFilter> filters = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav;*.wave"}};
    LFileChooser chooser{"Save tone as", "a.tdf", dir / "", filters, "tdf"};
    Then([&](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        EXPECT_EQ(dialog.windowTitle(), "Save tone as");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Tone file (*.tdf)", "Wave file (*.wav *.wave)"}));
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "a.tdf");
        dialog.selectNameFilter("Wave file (*.wav *.wave)");
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("new");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    const auto chosen = toolkit.ChooseFile(chooser, LFilePurpose::Save);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(chosen->path, dir / "new");
    EXPECT_EQ(chosen->filter, 1);
}

TEST_F(QtGui, EveryPictureIsDrawnInTheThemesColour) {
    const QStringList names = QDir(":/icons").entryList();
    EXPECT_GE(names.size(), 20);
    for (const QColor& colour : {QColor(0x10, 0x20, 0x30), QColor(0xE0, 0xF0, 0xFF)}) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::ButtonText, colour);
        QApplication::setPalette(palette);
        for (const QString& name : names) {
            const QImage picture = MakeIcon(name.chopped(4).toStdString()).pixmap(22, 22).toImage();
            int inked = 0;
            for (int i = 0; i < 22 * 22; ++i)
                if (const QColor pixel = picture.pixelColor(i % 22, i / 22); pixel.alpha() == 255)
                    inked += pixel == colour ? 1 : -1000;
            EXPECT_GT(inked, 3) << name.toStdString();
        }
    }
    const QIcon lamp = MakeIcon("stop", LIconLook::Lamp);
    EXPECT_EQ(lamp.pixmap({22, 22}, QIcon::Disabled, QIcon::On).toImage().pixelColor(11, 11),
              QColor(0x1f, 0x88, 0x3d));
    EXPECT_TRUE(MakeIcon("no such picture").isNull());
    toolkit.DispatchPending();
    EXPECT_FALSE(QApplication::windowIcon().pixmap(16, 16).isNull());
}

} // namespace
