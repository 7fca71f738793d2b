#pragma once

#include "cli/measuring/certificate_marks.h"
#include "jobs/hashed_reader.h"

#include <memory>

/// A sound that is held against a certificate while it is measured.
class CertificateCheck {
public:
    /// `GetFailure` says why the certificate can't be read or is none.
    explicit CertificateCheck(const std::string& path);

    const LFailure& GetFailure() const { return failure; }
    /// Stands before what hands out the sound, up to its end.
    std::unique_ptr<FrameReader> Watch(std::unique_ptr<FrameReader> sound);
    /// Once, behind the end: what has changed since the certificate was written, from the measurement as
    /// `DescribeMeasurement` has it; nothing where the sound is to the bit what is certified. The reader must
    /// still be there.
    std::vector<FigureChange> Finish(const Json& measured);
    /// Then: that the certificate's figures are not those of its samples; empty where they are.
    const std::string& GetNote() const { return note; }

private:
    LFailure Read(const std::string& path);
    std::vector<FigureChange> CompareFormats(const Json& measured) const;
    std::vector<FigureChange> CompareSamples(const Json& measured);
    void NoteFigures(const Json& measured);

    Json figures;
    std::string sha256;
    std::vector<FrameMark> marks;
    std::optional<FrameMarkFinder> finder;
    bool isOfThisMeter = false;
    std::string note;
    LFailure failure;
    HashedReader* reader = nullptr; ///< not owned
};

/// The verdict in lines, and as an object for scripts.
std::string TellChanges(const std::string& sound, const std::string& certificate,
                        const std::vector<FigureChange>& changes);
Json DescribeChanges(const std::string& certificate, const std::vector<FigureChange>& changes);
