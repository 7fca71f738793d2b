#pragma once

#include <optional>
#include <string>

/// How loud a sound has come out.
struct RenderedLevel {
    /// Full scale being 1: of a sound that reaches this, which is -60 dBFS, the peak is not looked for.
    static constexpr double Quiet = 0.001;

    double peak = 1;                   ///< 0 for silence; of what is not quiet, some part of it
    bool isDithered = false;           ///< the peak is that before
    std::optional<double> limitedDb{}; ///< the most that a limiter took off; nothing where there is none

    /// What its user should know: "is limited, ..."; empty where there is nothing to tell.
    std::string Describe() const;
};
