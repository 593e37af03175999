#include "tests/monkey/monkey_run.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>

namespace monkey {

namespace {

std::string lines_of(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += "\n      " + line;
    }
    return lines.empty() ? "\n      nothing" : text;
}

std::string compare(const char* what, const std::vector<std::string>& expected,
                    const std::vector<std::string>& found) {
    if (expected == found) {
        return {};
    }
    return std::string("  ") + what + "\n    expected:" + lines_of(expected) +
           "\n    found:" + lines_of(found) + "\n";
}

// A star stands for any one text.
bool answers(const std::vector<std::string>& expected, const std::vector<std::string>& found) {
    return std::equal(expected.begin(), expected.end(), found.begin(), found.end(),
                      [](const std::string& pattern, const std::string& text) {
                          return pattern == "*" || pattern == text;
                      });
}

std::string compare(const outcome& expected, const outcome& found) {
    std::string text = compare("calls", expected.calls, found.calls);
    text += compare("message boxes", expected.boxes, found.boxes);
    if (!answers(expected.assertions, found.assertions)) {
        text += compare("assertions", expected.assertions, found.assertions);
    }
    if (expected.error != found.error) {
        text += "  error\n    expected: " + expected.error + "\n    found: " + found.error + "\n";
    }
    return text;
}

std::string compare_views(const view& expected, const view& found) {
    std::string text;
    const std::size_t most = std::max(expected.size(), found.size());
    for (std::size_t i = 0; i < most; ++i) {
        const std::string wanted = i < expected.size() ? expected[i] : "nothing";
        const std::string got = i < found.size() ? found[i] : "nothing";
        if (wanted != got) {
            text.append("  seen\n    expected: ")
                .append(wanted)
                .append("\n    found:    ")
                .append(got)
                .append("\n");
        }
    }
    return text;
}

sequence without(const sequence& actions, std::size_t from, std::size_t count) {
    sequence rest(actions.begin(), actions.begin() + static_cast<std::ptrdiff_t>(from));
    rest.insert(rest.end(),
                actions.begin() + static_cast<std::ptrdiff_t>(std::min(from + count, actions.size())),
                actions.end());
    return rest;
}

// Leaves out pieces of one size wherever what is left still differs. True when something went.
bool leave_out(const pair_maker& make, difference& found, std::size_t size) {
    bool shorter = false;
    for (std::size_t from = 0; from < found.done.size();) {
        if (difference still = play(make, without(found.done, from, size)); still.found()) {
            found = std::move(still);
            shorter = true;
        } else {
            from += size;
        }
    }
    return shorter;
}

sequence make_sequence(unsigned seed, int steps) {
    std::mt19937 random(seed);
    sequence actions;
    for (int i = 0; i < steps; ++i) {
        actions.push_back(random_action(random));
    }
    return actions;
}

// What was done against the rule of the press.
std::string forbidden(const outcome& found) {
    std::string text;
    for (const std::string& call : found.calls) {
        if (call.starts_with("forbidden: ")) {
            text += "  " + call + "\n";
        }
    }
    return text;
}

difference play_by_the_rule(const pair_maker& make, const sequence& actions) {
    const auto bar = make.bar();
    sequence done;
    std::string text;
    for (const action& each : actions) {
        if (!text.empty()) {
            break;
        }
        done.push_back(each);
        text = forbidden(bar->perform(each));
    }
    return {done, text};
}

}  // namespace

difference play(const pair_maker& make, const sequence& actions) {
    if (!make.model) {
        return play_by_the_rule(make, actions);
    }
    const auto model = make.model();
    const auto bar = make.bar();
    model->start();
    sequence done;
    const auto look = [&] {
        const view expected = model->seen();
        return compare_views(expected, bar->seen(expected));
    };
    std::string text = look();
    for (const action& each : actions) {
        if (!text.empty()) {
            break;
        }
        done.push_back(each);
        const outcome expected = model->perform(each);
        text = compare(expected, bar->perform(each));
        text += look();
    }
    return {done, text};
}

difference shrink(const pair_maker& make, difference found) {
    std::size_t size = std::max<std::size_t>(found.done.size() / 2, 1);
    while (true) {
        const bool shorter = leave_out(make, found, size);
        if (size == 1 && !shorter) {
            return found;
        }
        size = std::max<std::size_t>(size / 2, 1);
    }
}

run_options options_of(int argc, char** argv, int seconds) {
    run_options options;
    const char* const told = std::getenv("ORDERDECK_MONKEY_SECONDS");
    options.seconds = told != nullptr ? std::atoi(told) : seconds;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const auto number = [&](const char* name, auto& value) {
            if (argument.starts_with(name)) {
                value = static_cast<std::decay_t<decltype(value)>>(
                    std::stoul(argument.substr(std::string(name).size())));
            }
        };
        number("--seed=", options.seed);
        number("--seconds=", options.seconds);
        number("--actions=", options.actions);
        number("--steps=", options.steps);
    }
    return options;
}

run_result run(const pair_maker& make, const run_options& options) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(options.seconds);
    run_result result;
    for (result.seed = std::max(options.seed, 1U);; ++result.seed) {
        const sequence actions = make_sequence(result.seed, options.steps);
        if (difference found = play(make, actions); found.found()) {
            // Said at once: the search may take its time.
            std::cout << "seed " << result.seed << " differs after " << found.done.size() << " actions in\n"
                      << found.text << std::endl;
            result.shortest = shrink(make, std::move(found));
            return result;
        }
        ++result.sequences;
        result.actions += actions.size();
        const bool enough = result.actions >= options.actions && std::chrono::steady_clock::now() >= end;
        if (options.seed != 0 || enough) {
            return result;
        }
    }
}

std::string report(const run_result& result) {
    std::string text = "seed " + std::to_string(result.seed) + ", after " + std::to_string(result.sequences) +
                       " good sequences; the shortest sequence that differs:\n";
    for (const action& each : result.shortest.done) {
        text += "  " + text_of(each) + ",\n";
    }
    return text + "its last action differs in\n" + result.shortest.text;
}

}  // namespace monkey
