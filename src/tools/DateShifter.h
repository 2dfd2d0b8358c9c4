#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "dates/ExifTool.h"
#include "platform/FileSystem.h"
#include "platform/MainActor.h"
#include "platform/MainActorPort.h"
#include "platform/SleepInhibitor.h"
#include "tools/DateShift.h"

namespace vellomar {

// How far a shift of dates is, or what the last one came to.
struct DateShiftState {
    bool isRunning = false;
    double progress = 0;     // 0 to 1
    std::string statusText;  // bytes: it holds a file's name
    std::size_t done = 0;    // files worked on
    std::size_t files = 0;   // all of them; 0 until they are collected
};

// Shifts the dates that are embedded in all images and videos of some folders, in the files themselves. One shift at a
// time, on a thread of its own, with one ExifTool after the other. Nothing of it is recorded: the way back is a shift
// by the opposite amount.
//
// It belongs to the main actor: it is made, called and destroyed there, and its state changes nowhere else. Destroyed
// during a shift it stops that, and waits for the file under way.
class DateShifter {
public:
    // What it works with; all of it must outlive it.
    struct Services {
        MainActor& mainActor;
        FileSystem& fileSystem;
        const ExifUtils::ExifTool& exifTool;
        SleepInhibitor& sleepInhibitor;
    };

    // `whenChanged` is called behind each change of the state.
    DateShifter(const Services& services, std::function<void()> whenChanged);
    ~DateShifter();
    DateShifter(const DateShifter&) = delete;
    DateShifter& operator=(const DateShifter&) = delete;

    [[nodiscard]] const DateShiftState& state() const { return main_.state; }

    // Shifts what collectShiftableFiles() finds in `folders`. Returns at once with isRunning set. Does nothing while a
    // shift is under way.
    //
    // What ExifTool makes of a file is not looked at: one that it could not change, or all where there is no ExifTool,
    // count as done. A shift by nothing goes through the files and starts no ExifTool.
    void applyShift(std::vector<std::string> folders, const DateShift& shift);

    // Asks the shift, if there is one, to end behind the file under way. The files so far stay shifted.
    void stop() { task_.request_stop(); }

private:
    struct Published {
        DateShiftState state;
        std::function<void()> whenChanged;

        void publish(DateShiftState changed);
    };
    using Port = MainActorPort<Published>;
    struct Request;

    static void perform(const Request& request, const std::stop_token& stop);
    static bool publishProgress(const Request& request, std::size_t done, std::size_t files, const std::string& path);

    const Services services_;
    Published main_;
    std::shared_ptr<Port> port_;
    std::jthread task_;  // of the last shift, ended or not
};

}  // namespace vellomar
