#pragma once

#include "sound/sound_source.h"

#include <cstddef>
#include <vector>

/// A list of sources and silences that play one after another. An item whose source has a status plays as
/// silence of its silence length, which for a source is 0.
/// Kept quirk: a negative silence plays nothing and counts as it is.
class LSoundSourceCat {
public:
    struct Item {
        LSoundSource source;
        LSoundTime silence;
    };

    /// Appends; the list shares the source. Nothing is allocated but the list itself.
    void AddSource(const LSoundSource& source);
    void AddSilence(LSoundTime time);

    const std::vector<Item>& GetItems() const { return items; }
    void Clear() { items.clear(); }

    /// The list as one source; it keeps the items, so the list may be cleared. Every item is converted to
    /// this format as it is reached; `peakMax` is the largest that they have then.
    /// Thread: builder. Blocks: no. Allocates: yes.
    LSoundSource OpenSource(int rate, std::uint8_t channels) const;
    /// At the largest rate and channel count of the items, 8000 Hz and mono where there are none.
    LSoundSource OpenSource() const;

private:
    std::vector<Item> items;
};

/// A concatenation that plays. Walks the items forward once; only a seek goes back. Opening an item seeks it
/// to 0; an item that has had its turn is unloaded.
/// Kept quirk: how long a converted item plays depends on the sizes in which it is read, as its converter's
/// position lags by a few frames. So the blocks of the limiter and of the render job have exactly their
/// sizes.
class LSSRCCat : public LSoundSourceBase {
public:
    LSSRCCat(const LSoundSourceCat& list, int rate, std::uint8_t channelCount, int peak);

    /// Thread: reader. Blocks: no. Allocates: yes, for the conversion of an item that it opens.
    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override { return position; }
    /// What has been played and what is left. Items not opened yet count whole, by the end that they state
    /// once they are converted.
    int GetEndSample() const override;
    /// Opens every item anew from the first one on. Beyond the end lies silence.
    /// Kept quirk: before the beginning it lasts twice as long, as the first item is sought there, too.
    /// Kept quirk: an empty list, once sought, plays one second of silence that the total of a list around it
    /// does not count.
    void Seek(int target) override;
    bool IsStreaming() const override;
    /// May wait twice: for the current item and for the next one.
    void WaitForStreamingData(int milliseconds) override;
    void Unload() override { current->Unload(); }

private:
    void Open(bool fromStart);
    int ReadCurrent(int* buffer, int frames);
    bool IsAllOpened() const { return cursor == items.size(); }
    int CountFrames(const LSoundSourceCat::Item& item) const;
    void CountRest();
    template <class Do>
    void ForEachStreamToCome(Do doThis) const;

    std::vector<LSoundSourceCat::Item> items;
    std::size_t cursor = 0;             ///< next item to open
    int rest = 0;                       ///< frames of the items to come, but for those that stream
    std::vector<std::size_t> streaming; ///< the places of those, which are counted anew each time
    int position = 0;                   ///< may be negative: silence before the beginning
    int silenceLeft = 0;                ///< of the current silence
    LSoundSource current;               ///< after conversion; nothing behind it while a silence plays
};
