#include "measure/real_transform.h"

#include "measure/kept_by_size.h"

#include <unsupported/Eigen/FFT>

struct RealTransform::Tables {
    Eigen::FFT<double> fft{Eigen::FFT<double>::impl_type(), Eigen::FFT<double>::HalfSpectrum};

    static Tables Make(std::size_t size) {
        Tables made;
        Bins bins;
        made.fft.fwd(bins, std::vector<double>(size)); // which makes them
        return made;
    }
};

/// A copy, as the library takes no tables that can't be changed.
RealTransform::RealTransform(std::size_t size) {
    static auto& kept = *new KeptBySize<Tables>;
    tables = std::make_unique<Tables>(kept.Get(size, Tables::Make));
}

RealTransform::~RealTransform() = default;

void RealTransform::Transform(Bins& bins, const std::vector<double>& samples) {
    tables->fft.fwd(bins, samples);
}
