#pragma once

#include "gui/controls_peer.h"
#include "gui/list_view_peer.h"
#include "gui/menu.h"
#include "gui/sound_view_peer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

using MemoryMenuMaker = std::function<std::unique_ptr<LMenuPeer>()>;

/// A list as the user sees it.
class MemoryList : public LListViewPeer {
public:
    MemoryList(LListViewEvents& listEvents, MemoryMenuMaker menuMaker)
        : events(listEvents),
          makeMenu(std::move(menuMaker)) {}

    std::vector<std::vector<std::string>> rows;
    std::vector<LRowLook> looks; ///< one for each row
    std::vector<int> selection;  ///< from top to bottom
    bool draggable = false;
    LListViewEvents& events; ///< for what the user does

    /// The user selects rows.
    void Select(const std::vector<int>& chosen) {
        SetSelection(chosen, 0);
        events.SelectionChanged(selection, chosen.empty() ? -1 : chosen.back());
    }

    void SetColumns(const std::vector<LListColumn>& /*columns*/) override {}
    void InsertRow(int row, const std::vector<std::string>& texts) override {
        rows.insert(rows.begin() + row, texts);
        looks.insert(looks.begin() + row, LRowLook{});
    }
    void DeleteRow(int row) override {
        rows.erase(rows.begin() + row);
        looks.erase(looks.begin() + row);
    }
    void SetLook(int row, const LRowLook& look) override { looks.at(static_cast<std::size_t>(row)) = look; }
    int GetHeight() const override { return static_cast<int>(rows.size() + 1) * 30; }
    void SetText(int row, int column, const std::string& text) override {
        rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)) = text;
    }
    void SetSelection(const std::vector<int>& chosen, int /*current*/) override {
        selection = chosen;
        std::sort(selection.begin(), selection.end());
    }
    void EnableDragging() override { draggable = true; }
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override { return makeMenu(); }

private:
    MemoryMenuMaker makeMenu;
};

/// A sound as the user sees it, and what has been copied of it.
class MemorySound : public LSoundViewPeer {
public:
    explicit MemorySound(MemoryMenuMaker menuMaker) : makeMenu(std::move(menuMaker)) {}

    LSoundView view;
    bool visible = true;
    int shown = 0; ///< how often it has been another sound
    std::string copied;

    void SetVisible(bool isVisible) override { visible = isVisible; }
    void Show(LShownSoundPtr sound) override {
        view.Show(std::move(sound));
        ++shown;
    }
    void SetLook(const LSoundLook& look) override { view.SetLook(look); }
    void ResetZoom() override { view.ResetZoom(); }
    int GetPlotsHeight() const override { return 130; }
    int GetFiguresHeight() const override { return 30; }
    void CopyPicture() override { copied = "picture"; }
    void CopyCsv() override { copied = view.WriteCsv(); }
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override { return makeMenu(); }

private:
    MemoryMenuMaker makeMenu;
};

/// A control as the user sees it.
struct MemoryControl {
    MemoryControl() = default;
    explicit MemoryControl(const LControlLayout& row) : kind(row.kind), text(row.text) {}

    LControlKind kind{};
    std::string text, toolTip;
    bool enabled = true, wrong = false;
    int value = 0, least = 0, most = 0;
    LMeterLevels levels;
    std::vector<std::string> choices;
    MemoryList* list = nullptr;   ///< while its owner has it
    MemorySound* sound = nullptr; ///< the same
};

/// Controls by their ids: those that were added, and no others. Where they stand is tested in real
/// windows.
class MemoryControls : public LControlsPeer {
public:
    int focus = 0;
    MemoryMenuMaker makeMenu; ///< for lists

    /// A number edit and its text are one control with two ids.
    MemoryControl& operator[](int id) const {
        const auto number = numberOfText.find(id);
        const auto found = controls.find(number == numberOfText.end() ? id : number->second);
        if (found != controls.end())
            return found->second;
        ADD_FAILURE() << "there is no control " << id;
        return missing;
    }

    void Add(const LControlLayout& control) override {
        if (control.kind == LControlKind::NumberText)
            numberOfText[control.id] = lastAdded;
        else
            controls.insert_or_assign(control.id, MemoryControl{control});
        lastAdded = control.id;
    }
    void Place(int id, const LRect& /*rect*/) override { (*this)[id]; }
    LRect GetPlace(int id) const override { return (*this)[id], LRect{}; }
    void SetText(int id, const std::string& text) override { (*this)[id].text = text; }
    std::string GetText(int id) const override { return (*this)[id].text; }
    void Enable(int id, bool enabled) override { (*this)[id].enabled = enabled; }
    void SetToolTip(int id, const std::string& text) override { (*this)[id].toolTip = text; }
    void MarkWrong(int id, bool wrong) override { (*this)[id].wrong = wrong; }
    void SetName(int id, const std::string& /*name*/) override { (*this)[id]; }
    void SetFocus(int id) override {
        (*this)[id];
        focus = id;
    }
    void SetRange(int id, int least, int most) override {
        (*this)[id].least = least;
        (*this)[id].most = most;
    }
    void SetValue(int id, int value) override {
        if ((*this)[id].kind == LControlKind::Radio && value != 0)
            for (auto& [otherId, other] : controls)
                other.value = other.kind == LControlKind::Radio ? 0 : other.value;
        if ((*this)[id].kind == LControlKind::NumberEdit)
            (*this)[id].text = std::to_string(value);
        (*this)[id].value = value;
    }
    bool IsHeld(int id) const override { return (*this)[id], false; }
    int GetValue(int id) const override {
        const MemoryControl& control = (*this)[id];
        return control.kind == LControlKind::NumberEdit ? std::atoi(control.text.c_str()) : control.value;
    }
    void SetChoices(int id, const std::vector<std::string>& choices) override {
        (*this)[id].choices = choices;
        (*this)[id].value = 0;
    }
    void SetLevels(int id, const LMeterLevels& levels) override { (*this)[id].levels = levels; }
    void SetValueText(int id, const std::string& text) override { (*this)[id].text = text; }
    std::unique_ptr<LListViewPeer> CreateListViewPeer(int id, LListViewEvents& events) override {
        auto list = std::make_unique<MemoryList>(events, makeMenu);
        (*this)[id].list = list.get();
        return list;
    }
    std::unique_ptr<LSoundViewPeer> CreateSoundViewPeer(int id) override {
        auto sound = std::make_unique<MemorySound>(makeMenu);
        (*this)[id].sound = sound.get();
        return sound;
    }

private:
    mutable std::map<int, MemoryControl> controls;
    mutable MemoryControl missing;
    std::map<int, int> numberOfText;
    int lastAdded = 0;
};
