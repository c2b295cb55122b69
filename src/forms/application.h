#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace forms {

class Control;
class Form;

/// A failed operation of the platform; what() is the system's own text, in UTF-8.
class RuntimeError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The window behind a form.
class WindowPeer {
  public:
    virtual ~WindowPeer() = default;
    virtual void show() = 0;
    /// Shows the window above its owner, keeps the program's other windows from input, and
    /// returns when it has been hidden.
    virtual void showModal(Form& owner) = 0;
    /// Takes the window away for good; its form has been unloaded.
    virtual void hide() = 0;
    /// Paints the window at once.
    virtual void refresh() = 0;
    /// Draws the form's caption, place and state.
    virtual void update() = 0;
    /// Moves the focus to the control, if that has a window.
    virtual void focus(const Control& control) = 0;
};

/// What a file dialog is asked. The filter is pairs of description and pattern, parted by "|".
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string name;  ///< the name offered
};

/// A kind of windows.
class Toolkit {
  public:
    virtual ~Toolkit() = default;
    /// Gives the form a window and each of its controls a peer.
    virtual void build(Form& form) = 0;
    /// Asks for a file that exists or may be made, modally; empty if the user cancels.
    virtual std::string chooseFile(Form& owner, const FileQuestion& question) = 0;
    /// The last form has gone and no handler is running: ends the message loop.
    virtual void quit() = 0;
};

/// The open forms, and the one boundary through which every user's action enters.
class Application {
  public:
    /// tellError shows the text of a failed operation to the user.
    Application(Toolkit& toolkit, std::function<void(const std::string&)> tellError);
    ~Application();

    /// Runs a handler for something that the user or the window system did. A failed operation
    /// ends the handler, is told to the user, and goes no further. Forms that were unloaded are
    /// destroyed when the outermost handler has returned.
    void dispatch(const std::function<void()>& handler);

    /// Makes a form, adds it to the open ones and runs its Form_Load. Its window stays hidden.
    template <typename Kind, typename... Arguments>
    Kind& load(Arguments&&... arguments) {
        auto form = std::make_unique<Kind>(*this, std::forward<Arguments>(arguments)...);
        Kind& loaded = *form;
        add(std::move(form));
        return loaded;
    }

    /// Number of open forms.
    [[nodiscard]] int Count() const { return static_cast<int>(open_.size()); }
    /// The open forms in order of loading, from 0.
    Form& Forms(int index) { return *open_.at(index); }

    std::string chooseFile(Form& owner, const FileQuestion& question);

  private:
    friend class Form;
    void add(std::unique_ptr<Form> form);
    void remove(Form& form);

    Toolkit& toolkit_;
    std::function<void(const std::string&)> tellError_;
    std::vector<std::unique_ptr<Form>> open_;
    std::vector<std::unique_ptr<Form>> gone_;  ///< unloaded, while handlers of theirs may still run
    Form* active_ = nullptr;                   ///< the form that the user works in
    int depth_ = 0;                            ///< handlers now running, one inside the other
};

}  // namespace forms
