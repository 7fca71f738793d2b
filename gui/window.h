#pragma once

#include "gui/window_peer.h"

class LToolkit;

/// A window with controls that are reached by their ids. What the user does arrives as a command: the id of
/// the control, menu entry, tool bar item or key. A control that does not exist is ignored, and reads as
/// empty. A window exists on the screen only between `InitDialog` and `DestroyDialog`. UI thread only.
class LWindow : protected LWindowEvents {
public:
    LWindow() = default;
    LWindow(const LWindow&) = delete;
    LWindow& operator=(const LWindow&) = delete;

    LToolkit& GetToolkit() const { return *toolkit; }
    LControlsPeer& GetControls() const;

    void SetCaption(const std::string& caption);
    void SetDocument(const LWindowDocument& document);
    void SetText(int control, const std::string& text);
    std::string GetText(int control) const;
    void EnableControl(int control, bool enabled);
    void CheckButton(int control, bool checked) { SetValue(control, checked ? 1 : 0); }
    bool IsChecked(int control) const { return GetValue(control) != 0; }
    void SetRange(int control, int least, int most);
    void SetValue(int control, int value);
    int GetValue(int control) const;
    bool IsHeld(int control) const;
    /// A progress bar at the whole percents of `fraction`, which counts from 0 to 1.
    void PBSetProgress(int control, double fraction);
    void SetChoices(int control, const std::vector<std::string>& choices);
    void SetLevels(int control, const LMeterLevels& levels);
    void SetValueText(int control, const std::string& text);
    void SetFocus(int control);
    void MarkWrong(int control, bool wrong);
    void SetToolTip(int control, const std::string& text);
    void SetName(int control, const std::string& name);

    /// Runs the command, by whichever way it came.
    virtual void Command(int command) = 0;
    /// Files dropped on the window.
    virtual void EvDropFiles(const std::vector<std::string>& /*paths*/) {}
    /// Files dropped on a list that takes them, to stand before row `before`.
    virtual void EvDropFilesOnList(int /*control*/, const std::vector<std::string>& paths, int /*before*/) {
        EvDropFiles(paths);
    }

protected:
    /// The window has just been created, and is not shown yet.
    virtual void InitDialog() {}
    /// The window is about to go; its controls still stand.
    virtual void DestroyDialog() {}
    /// Enables what makes sense now.
    virtual void EnableControls() {}
    /// Places the controls in a window of this size.
    virtual void LayoutControls(int /*width*/, int /*height*/) {}
    /// OK was pressed; true closes the window.
    virtual bool CmOk() { return true; }
    virtual void CmCancel() {}
    virtual void CmHelp() {}
    /// Closes the window; OK or not is its result.
    virtual void Close(int ok) = 0;
    virtual LWindowPeer* GetPeer() const = 0;

    void ControlUsed(int id) override;
    bool KeyPressed(const LKeyPress& /*key*/) override { return false; }
    void CloseAsked() override { Close(0); }
    void Resized(int width, int height) override { LayoutControls(width, height); }
    void FilesDropped(const std::vector<std::string>& paths) override { EvDropFiles(paths); }

    /// Not owned; set before the window comes on the screen.
    LToolkit* toolkit = nullptr;
};
