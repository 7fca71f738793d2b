#pragma once

#include "gui/controls_peer.h"
#include "gui/qt/qt_letters.h"

#include <map>

class LWindowEvents;
class QWidget;

/// The controls of one Qt window, by id. The widgets belong to their window, which outlives this.
class LQtControls : public LControlsPeer {
public:
    /// Controls are added to `parent`; `pixels` is how large the unit of the layout is.
    LQtControls(QWidget* parentWidget, double pixels, LWindowEvents& windowEvents);

    /// Makes a widget that stands elsewhere in the window reachable by an id, and its use an event.
    void Register(int id, QWidget* widget);
    QWidget* Find(int id) const;
    double GetUnit() const { return unit; }

    void Add(const LControlLayout& control) override;
    void Place(int id, const LRect& rect) override;
    LRect GetPlace(int id) const override;
    void SetText(int id, const std::string& text) override;
    std::string GetText(int id) const override;
    void Enable(int id, bool enabled) override;
    void SetToolTip(int id, const std::string& text) override;
    void SetName(int id, const std::string& name) override;
    void MarkWrong(int id, bool wrong) override;
    void SetFocus(int id) override;
    void SetRange(int id, int least, int most) override;
    void SetValue(int id, int value) override;
    int GetValue(int id) const override;
    bool IsHeld(int id) const override;
    void SetChoices(int id, const std::vector<std::string>& choices) override;
    void SetLevels(int id, const LMeterLevels& levels) override;
    void SetValueText(int id, const std::string& text) override;
    std::unique_ptr<LListViewPeer> CreateListViewPeer(int id, LListViewEvents& listEvents) override;
    std::unique_ptr<LSoundViewPeer> CreateSoundViewPeer(int id) override;

private:
    QWidget* Make(const LControlLayout& control);
    void Connect(int id, QWidget* widget);
    void NameBy(QWidget* before, QWidget* input);

    QWidget* parent;
    double unit;
    LWindowEvents& events;
    std::map<int, QWidget*> widgets;
    int numberEdit = 0;           ///< the id of the number edit added last
    QWidget* lastAdded = nullptr; ///< of all
    LQtLetters letters;
};
