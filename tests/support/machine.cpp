#include "support/machine.h"

namespace lookfar::testing {

Machine::Machine(int cameras, IdleTicks idle_ticks) : program(platform, idle_ticks) {
    std::string list;
    for (int index = 0; index < cameras; ++index) {
        const char camera = static_cast<char>('a' + index);
        list += std::string(1, camera) + "\r\n" + url_of(camera) + "\r\n";
        set_answer(camera, picture_file(320 + 16 * index, 240));
    }
    if (cameras > 0)
        write_file("Cams.inf", list);
}

void Machine::start() {
    program.start();
    platform.run_for(seconds(1));
}

void Machine::pick(short index) {
    program.runtime.deliver([this, index] {
        Form1->Combo1.ListIndex = index;
        Form1->Command2.Click.raise();
    });
}

void Machine::set_answer(char camera, Answer answer, milliseconds after) {
    platform.cameras[url_of(camera)] = {.outcome = std::move(answer), .after = after};
}

void Machine::refresh_with(const Answer& answer, milliseconds after) {
    for (auto& [url, scripted] : platform.cameras)
        scripted = {.outcome = answer, .after = after};
    refresh();
}

std::string Machine::url_of(char camera) {
    return std::string("http://cameras.example/") + camera + ".jpg";
}

} // namespace lookfar::testing
