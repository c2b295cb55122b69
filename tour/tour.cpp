/// A tour of the real program on a hidden display, by real keys and clicks, in a demo folder.
/// Prints each step, the scripts and the calls of the tools, and takes a screenshot of each step.
/// Fails if a step does not succeed.
///
///     tour PROJECT_FOLDER BUILD_FOLDER

#include <iostream>

#include "run_on_hidden_display.h"

namespace {

void takeTour(const tour::Display& display, const tour::Demo& demo,
              const std::filesystem::path& pictures) {
    tour::Guide guide(display, demo, pictures);
    std::size_t steps = 0;
    for (const tour::Scene& scene : tour::scenes(demo.system())) {
        std::cout << "\n" << scene.name << "\n";
        for (const tour::Step& step : scene.steps)
            guide.take(step);
        steps += scene.steps.size();
    }
    std::cout << "\nAll " << steps << " steps of the tour succeeded. Their screenshots are in "
              << pictures.string() << ".\n";
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return tour::runOnHiddenDisplay("tour", argumentCount, arguments, takeTour);
}
