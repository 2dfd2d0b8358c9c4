#pragma once

namespace vellomar {

// Where the core asks for the one setting that is not an option of a run. It is asked anew for every file, so that a
// change takes effect at once, in a run that is under way as well. Any thread.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    // `secret_floppy_mode`; false until someone finds the switch.
    [[nodiscard]] virtual bool secretFloppyMode() const = 0;
};

}  // namespace vellomar
