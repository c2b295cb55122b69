#include "forms/application.h"

#include <algorithm>

#include "forms/form.h"

namespace forms {

Application::Application(Toolkit& toolkit, std::function<void(const std::string&)> tellError)
    : toolkit_(toolkit), tellError_(std::move(tellError)) {}

Application::~Application() = default;

void Application::dispatch(const std::function<void()>& handler) {
    ++depth_;
    try {
        handler();
    } catch (const std::exception& error) {
        tellError_(error.what());
    }
    if (--depth_ > 0) return;
    gone_.clear();
    if (open_.empty()) toolkit_.quit();
}

void Application::add(std::unique_ptr<Form> form) {
    Form& added = *form;
    open_.push_back(std::move(form));
    toolkit_.build(added);
    dispatch([&] { added.Form_Load(); });
}

void Application::remove(Form& form) {
    if (active_ == &form) active_ = nullptr;
    const auto found = std::find_if(open_.begin(), open_.end(),
                                    [&](const auto& open) { return open.get() == &form; });
    gone_.push_back(std::move(*found));
    open_.erase(found);
}

std::string Application::chooseFile(Form& owner, const FileQuestion& question) {
    return toolkit_.chooseFile(owner, question);
}

}  // namespace forms
