// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Sets an environment variable for the life of a test and restores it after.
#include <cstdlib>
#include <optional>
#include <string>

class ScopedEnvironment {
public:
    ScopedEnvironment(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* previous = std::getenv(name_.c_str()))
            saved_ = previous;
        Set(value.c_str());
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment() { Set(saved_ ? saved_->c_str() : nullptr); }

private:
    void Set(const char* value) {
#ifdef _WIN32
        ::_putenv_s(name_.c_str(), value ? value : ""); // "" removes it there
#else
        value ? ::setenv(name_.c_str(), value, 1) : ::unsetenv(name_.c_str());
#endif
    }
    std::string name_;
    std::optional<std::string> saved_;
};
