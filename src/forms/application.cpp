#include "forms/application.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"

namespace forms {

Application::Application(Toolkit& toolkit, ShowError showError, std::function<void()> saveOnBug)
    : toolkit_(toolkit), showError_(std::move(showError)), saveOnBug_(std::move(saveOnBug)) {}

Application::~Application() = default;

void Application::dispatch(const std::function<void()>& handler) {
    run(handler);
    if (depth_ > 0) return;
    gone_.clear();
    if (open_.empty()) toolkit_.quit();
}

void Application::run(const std::function<void()>& handler) {
    struct Running {
        explicit Running(int& depth) : depth(depth) { ++depth; }
        ~Running() { --depth; }
        int& depth;
    };
    const Running running(depth_);
    try {
        handler();
    } catch (const Refusal& refusal) {
        showError_(refusal.what(), true);
    } catch (const RuntimeError& error) {
        showError_(error.what(), false);
    } catch (const std::exception&) {
        // Only once: the exception passes the boundary of each outer handler too.
        if (const auto save = std::exchange(saveOnBug_, nullptr)) save();
        throw;
    }
}

Form& Application::add(std::unique_ptr<Form> form) {
    Form& added = *form;
    open_.push_back(std::move(form));
    toolkit_.build(added);
    dispatch([&] { added.Form_Load(); });
    return added;
}

void Application::remove(Form& form) {
    if (active_ == &form) active_ = nullptr;
    const auto found =
        std::ranges::find_if(open_, [&](const auto& open) { return open.get() == &form; });
    gone_.push_back(std::move(*found));
    open_.erase(found);
}

std::string Application::chooseFile(Form& owner, const FileQuestion& question) {
    return toolkit_.chooseFile(owner, question);
}

}  // namespace forms
