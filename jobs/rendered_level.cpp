#include "jobs/rendered_level.h"
#include "sound/decibels.h"

#include <cstdio>

std::string RenderedLevel::Describe() const {
    constexpr double LeastDb = 0.005; // what is told is rounded to 0.01
    char text[96] = "";
    if (limitedDb.value_or(0) >= LeastDb)
        std::snprintf(text, sizeof text, "is too loud, and limited by up to %.2f dB", *limitedDb);
    else if (peak == 0)
        return isDithered ? "is silent but for the dither" : "is silent";
    else if (peak < Quiet)
        std::snprintf(text, sizeof text, "is below -60 dBFS: its peak is %.2f dBFS%s", ToDecibels(peak),
                      isDithered ? ", dither left out" : "");
    return text;
}
