#include "platform/decoder/worker/Confinement.h"

#include <array>
#include <cerrno>
#include <memory>
#include <span>

#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vellomar {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

constexpr rlim_t kMostOutput = rlim_t{1} << 29U;
constexpr rlim_t kMostOpenFiles = 64;

// What decoding takes: memory, threads, clocks, and reading and writing what is open.
constexpr std::array kAllowedCalls = {SCMP_SYS(brk),
                                      SCMP_SYS(mmap),
                                      SCMP_SYS(munmap),
                                      SCMP_SYS(mremap),
                                      SCMP_SYS(mprotect),
                                      SCMP_SYS(madvise),
                                      SCMP_SYS(read),
                                      SCMP_SYS(pread64),
                                      SCMP_SYS(readv),
                                      SCMP_SYS(write),
                                      SCMP_SYS(writev),
                                      SCMP_SYS(lseek),
                                      SCMP_SYS(fstat),
                                      SCMP_SYS(close),
                                      SCMP_SYS(recvmsg),
                                      SCMP_SYS(sendmsg),
                                      SCMP_SYS(poll),
                                      SCMP_SYS(ppoll),
                                      SCMP_SYS(futex),
                                      SCMP_SYS(set_robust_list),
                                      SCMP_SYS(get_robust_list),
                                      SCMP_SYS(rseq),
                                      SCMP_SYS(sched_yield),
                                      SCMP_SYS(sched_getaffinity),
                                      SCMP_SYS(gettid),
                                      SCMP_SYS(getpid),
                                      SCMP_SYS(exit),
                                      SCMP_SYS(exit_group),
                                      SCMP_SYS(rt_sigaction),
                                      SCMP_SYS(rt_sigprocmask),
                                      SCMP_SYS(rt_sigreturn),
                                      SCMP_SYS(sigaltstack),
                                      SCMP_SYS(restart_syscall),
                                      SCMP_SYS(setitimer),
                                      SCMP_SYS(clock_gettime),
                                      SCMP_SYS(clock_getres),
                                      SCMP_SYS(clock_nanosleep),
                                      SCMP_SYS(nanosleep),
                                      SCMP_SYS(gettimeofday),
                                      SCMP_SYS(time),
                                      SCMP_SYS(getrandom),
                                      SCMP_SYS(getrusage),
                                      SCMP_SYS(sysinfo),
                                      SCMP_SYS(uname)};

// Sanitizers find out by a pipe whether memory can be read.
constexpr std::array kCallsOfSanitizers = {SCMP_SYS(pipe), SCMP_SYS(pipe2)};

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

Expected<void> lowerLimit(int resource, rlim_t value) {
    const rlimit limit{value, value};
    if (::setrlimit(static_cast<__rlimit_resource_t>(resource), &limit) != 0) return systemFailure(errno);
    return {};
}

int allowIf(scmp_filter_ctx filter, int call, const scmp_arg_cmp& argument) {
    return seccomp_rule_add_array(filter, SCMP_ACT_ALLOW, call, 1, &argument);
}

// Both forms in which a C library may ask for a thread. Of the newer one a filter cannot see the arguments, and without
// it the older one is used.
int allowThreads(scmp_filter_ctx filter) {
    if (const int failed = seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0)) return failed;
    return allowIf(filter, SCMP_SYS(clone), {0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD});
}

// A process that aborts signals itself.
int allowSignalsToItself(scmp_filter_ctx filter) {
    return allowIf(filter, SCMP_SYS(tgkill), {0, SCMP_CMP_EQ, static_cast<scmp_datum_t>(::getpid()), 0});
}

// Newer C libraries ask by this call for the status of an open file.
int allowStatusOfOpenFiles(scmp_filter_ctx filter) {
    return allowIf(filter, SCMP_SYS(newfstatat), {3, SCMP_CMP_EQ, AT_EMPTY_PATH, 0});
}

int allowAll(scmp_filter_ctx filter, std::span<const int> calls) {
    for (const int call : calls)
        if (const int failed = seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, 0)) return failed;
    return 0;
}

int allowDecoding(scmp_filter_ctx filter) {
    if (const int failed = allowAll(filter, kAllowedCalls)) return failed;
    if (kIsSanitized)
        if (const int failed = allowAll(filter, kCallsOfSanitizers)) return failed;
    if (const int failed = allowStatusOfOpenFiles(filter)) return failed;
    if (const int failed = allowThreads(filter)) return failed;
    return allowSignalsToItself(filter);
}

Expected<void> dropPrivileges() {
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return systemFailure(errno);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    if (::syscall(SYS_capset, &header, none.data()) != 0) return systemFailure(errno);
    return {};
}

}  // namespace

Expected<void> limitResources(std::size_t mostMemory) {
    if (!kIsSanitized)
        if (auto limited = lowerLimit(RLIMIT_DATA, mostMemory); !limited) return limited;
    if (auto limited = lowerLimit(RLIMIT_NOFILE, kMostOpenFiles); !limited) return limited;
    if (auto limited = lowerLimit(RLIMIT_FSIZE, kMostOutput); !limited) return limited;
    return lowerLimit(RLIMIT_CORE, 0);
}

Expected<void> confine() {
    if (auto dropped = dropPrivileges(); !dropped) return dropped;
    const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release);
    if (!filter) return systemFailure(ENOMEM);
    if (const int failed = allowDecoding(filter.get())) return systemFailure(-failed);
    if (const int failed = seccomp_load(filter.get())) return systemFailure(-failed);
    return {};
}

}  // namespace vellomar
