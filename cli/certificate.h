#pragma once

#include "cli/render_jobs.h"
#include "jobs/rendered_level.h"
#include "sys/failure.h"

#include <set>
#include <string>

/// Who writes certificates.
inline constexpr const char* ProgramName = "Sonvire " SONVIRE_VERSION;
/// Of what measures their figures: to be raised where the same samples get others.
inline constexpr int MeterNumber = 1;

namespace CLI {
class App;
}

/// Adds `--certificate` to `render`, where this build can measure. `options` must outlive the command.
void AddCertificateOption(CLI::App& command, RenderOptions& options);

/// For before a rendering of what is `read`: why there can't be the certificate that the options ask for, if
/// any.
LFailure CheckCertificate(const RenderOptions& options, const std::set<std::string>& read);

/// Reads the rendered file back and writes what it is into the certificate that the options ask for; returns
/// the exit status. docs/file-formats.md tells what is in it.
int Certify(const RenderOptions& options, const RenderedLevel& level);
