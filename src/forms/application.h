#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/runtime_error.h"

namespace forms {

class Control;
class Form;

/// The native window of a form.
class WindowPeer {
  public:
    virtual ~WindowPeer() = default;
    virtual void show() = 0;
    /// Shows the window above its owner, blocks input to the program's other windows, and returns
    /// when it has been hidden.
    virtual void showModal(Form& owner) = 0;
    /// Hides the window for good: its form has been unloaded.
    virtual void hide() = 0;
    /// Paints the window immediately.
    virtual void refresh() = 0;
    /// Updates the window from the form's caption, place and state.
    virtual void update() = 0;
    /// Moves the focus to the control, if it has a native window.
    virtual void focus(const Control& control) = 0;
};

/// The parameters of a file dialog. The filter is pairs of description and pattern, separated by
/// "|".
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string name;  ///< the initial name
};

/// Creates native windows for forms.
class Toolkit {
  public:
    virtual ~Toolkit() = default;
    /// Creates the form's window and a peer for each of its controls.
    virtual void build(Form& form) = 0;
    /// Lets the user choose an existing or a new file, modally. Returns an empty string on cancel.
    virtual std::string chooseFile(Form& owner, const FileQuestion& question) = 0;
    /// Ends the message loop. Called when the last form is gone and no handler is running.
    virtual void quit() = 0;
};

/// Owns the open forms and is the single entry point for user actions.
class Application {
  public:
    /// Shows the text of a failed operation to the user: the system's, or the program's own if it
    /// was refused.
    using ShowError = std::function<void(const std::string& text, bool refused)>;

    /// `saveOnBug` runs before a bug ends the program, at most once.
    Application(Toolkit& toolkit, ShowError showError, std::function<void()> saveOnBug = nullptr);
    ~Application();

    /// Runs a handler for an action of the user or the window system. A RuntimeError ends the
    /// handler, is shown to the user and is not rethrown; any other exception is a bug and passes
    /// on. Unloaded forms are destroyed when the outermost handler has returned.
    void dispatch(const std::function<void()>& handler);

    /// Creates a form, adds it to the open forms and runs its Form_Load. The window stays hidden.
    template <typename Kind, typename... Arguments>
    Kind& load(Arguments&&... arguments) {
        auto form = std::make_unique<Kind>(*this, std::forward<Arguments>(arguments)...);
        Kind& loaded = *form;
        add(std::move(form));
        return loaded;
    }

    /// Does the same for a form that was created on this application, and returns it.
    Form& add(std::unique_ptr<Form> form);

    /// Number of open forms.
    [[nodiscard]] int Count() const { return static_cast<int>(open_.size()); }
    /// Returns an open form; index is 0-based, in order of loading.
    Form& Forms(int index) { return *open_.at(index); }

    std::string chooseFile(Form& owner, const FileQuestion& question);

  private:
    friend class Form;
    void run(const std::function<void()>& handler);
    void remove(Form& form);

    Toolkit& toolkit_;
    ShowError showError_;
    std::function<void()> saveOnBug_;
    std::vector<std::unique_ptr<Form>> open_;
    std::vector<std::unique_ptr<Form>> gone_;  ///< unloaded; handlers may still be running
    Form* active_ = nullptr;                   ///< the form that was activated last
    int depth_ = 0;                            ///< number of nested handlers now running
};

}  // namespace forms
