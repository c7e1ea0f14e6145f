#include "api.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>
#include <x86intrin.h>

namespace orvtest {
namespace {

constexpr std::uint32_t mxcsr_flags = 0x3F; // sticky, any operation may set them
constexpr std::uint64_t direction_flag = 1 << 10;
constexpr std::uint16_t x87_empty = 0xFFFF; // two bits for each register, 11 is empty

struct X87Environment { // as FNSTENV stores it
    std::uint16_t control, reserved0, status, reserved1, tags, reserved2;
    std::uint32_t pointers[4];
};

X87Environment x87_environment()
{
    X87Environment environment;
    __asm__ volatile("fnstenv %0\n\tfldenv %0" : "=m"(environment)); // storing alone would mask the exceptions
    return environment;
}

std::uint16_t x87_control_word()
{
    std::uint16_t word;
    __asm__ volatile("fnstcw %0" : "=m"(word));
    return word;
}

int failures = 0;
thread_local const char* running_export = nullptr;
thread_local const std::function<std::string()>* running_note = nullptr;

std::string changed(const char* what, unsigned before, unsigned after)
{
    char text[96];
    std::snprintf(text, sizeof text, "%s was 0x%04x before the call and is 0x%04x after it", what, before, after);
    return text;
}

void repair_x87(std::uint16_t control) { __asm__ volatile("fninit\n\tfldcw %0" : : "m"(control)); }

constexpr int fault_signals[] = {SIGSEGV, SIGBUS, SIGILL, SIGFPE};
struct sigaction outer_actions[std::size(fault_signals)];

// The fault is the export's own and synchronous, outside any lock of the C library, so that ordinary output works here.
void report_fault(int number, siginfo_t* info, void*)
{
    std::fprintf(stderr, "\nsignal %d at address %p in %s\n", number, info->si_addr,
                 running_export ? running_export : "the test itself");
    if (running_export && running_note) std::fprintf(stderr, "%s\n", (*running_note)().c_str());
    std::fflush(stderr);
    // The instruction runs again after this, and what was there before decides the end.
    for (std::size_t i = 0; i < std::size(fault_signals); ++i) sigaction(fault_signals[i], &outer_actions[i], nullptr);
}

/// A function whose last arguments are fixed.
class WithLast final : public Callee {
public:
    WithLast(std::shared_ptr<const Callee> f, std::size_t leading, std::vector<AnyArgument> last)
        : f_(std::move(f)), leading_(leading), last_(std::move(last))
    {
        if (leading_ + last_.size() > most) throw std::length_error("an export with so many arguments");
    }

    OrvStatus call(const AnyArgument* arguments) const override
    {
        AnyArgument all[most];
        std::copy_n(last_.begin(), last_.size(), std::copy_n(arguments, leading_, all));
        return f_->call(all);
    }

private:
    static constexpr std::size_t most = 16; // arguments of an export

    const std::shared_ptr<const Callee> f_;
    const std::size_t leading_;
    const std::vector<AnyArgument> last_;
};

} // namespace

AnyCall call_with_last(const char* name, std::shared_ptr<const Callee> f, std::size_t before_length,
                       std::initializer_list<FixedArgument> last)
{
    if (last.size() == 0) return {name, "", std::move(f)};
    std::string parameters;
    std::vector<AnyArgument> values;
    for (const FixedArgument& argument : last) {
        parameters += (parameters.empty() ? "" : ", ") + argument.text;
        values.push_back(argument.value);
    }
    return {name, parameters, std::make_shared<WithLast>(std::move(f), before_length + 1, std::move(values))};
}

StateGuard::StateGuard(const char* export_name)
    : outer_name_(std::exchange(running_export, export_name)), mxcsr_(_mm_getcsr()), x87_control_(x87_control_word())
{}

StateGuard::~StateGuard()
{
    const auto flags = __readeflags();
    __asm__ volatile("cld");
    const std::uint32_t mxcsr = _mm_getcsr();
    const X87Environment x87 = x87_environment();

    std::string complaint;
    if ((mxcsr ^ mxcsr_) & ~mxcsr_flags) {
        complaint = changed("MXCSR", mxcsr_, mxcsr);
        _mm_setcsr(mxcsr_);
    } else if (x87.control != x87_control_) {
        complaint = changed("the x87 control word", x87_control_, x87.control);
        repair_x87(x87_control_);
    } else if (x87.tags != x87_empty) {
        complaint = changed("the x87 tag word", x87_empty, x87.tags);
        repair_x87(x87_control_);
    } else if (flags & direction_flag) {
        complaint = "the direction flag is set after the call";
    }
    if (!complaint.empty()) {
        ++failures;
        ADD_FAILURE() << running_export << ": " << complaint;
    }
    running_export = outer_name_;
}

int state_failures() { return failures; }

CallNote::CallNote(std::function<std::string()> text) : text_(std::move(text)) { running_note = &text_; }
CallNote::~CallNote() { running_note = nullptr; }

void install_fault_reporter()
{
    struct sigaction action = {};
    action.sa_sigaction = report_fault;
    action.sa_flags = SA_SIGINFO;
    for (std::size_t i = 0; i < std::size(fault_signals); ++i) sigaction(fault_signals[i], &action, &outer_actions[i]);
}

} // namespace orvtest
