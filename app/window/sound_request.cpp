#include "app/window/sound_request.h"

RequestedSound OpenRequest(const SoundRequest& request) {
    if (request.highRate == 0)
        return {{ReadRendered(OpenToneInput(request.tone, SoundLength::Any), {})}, 0};
    HiresInput input = OpenHiresToneInput(
        request.tone, {.settings = {.rate = request.highRate, .fit = true}, .length = SoundLength::Any});
    const double lowered = input.loweredDb;
    return {{ReadRenderedHires(std::move(input), {})}, lowered};
}
