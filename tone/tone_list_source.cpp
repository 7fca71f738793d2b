#include "tone/tone_list_source.h"

#include "sound/wave_file.h"
#include "sys/file.h"
#include "sys/message_box.h"
#include "tone/tone_engine.h"

namespace {

/// How deep in lists the one being opened lies, and how much the outermost one has opened. Lists are opened
/// on one thread, one after another.
struct Nesting {
    int depth = 0;
    int entries = 0;
    bool told = false;
};
thread_local Nesting nesting;

class NestingLevel {
public:
    NestingLevel() { ++nesting.depth; }
    ~NestingLevel() {
        if (--nesting.depth == 0)
            nesting = {};
    }
    NestingLevel(const NestingLevel&) = delete;
    NestingLevel& operator=(const NestingLevel&) = delete;
};

bool MayGoDeeper() {
    return nesting.depth < MaxListDepth && nesting.entries < MaxEntriesInAll;
}

void TellTooDeep(const std::string& path) {
    if (nesting.told)
        return;
    nesting.told = true;
    LShowMessageBox("Tone list", "The list \"" + path +
                                     "\" includes itself, or lists too deep within each other, or too many. "
                                     "Its deepest entries are left out.");
}

} // namespace

SSFromList::SSFromList(const LList<ToneItem>& list, const std::string& folder) {
    const NestingLevel level;
    for (const ToneItem& item : list) {
        if (++nesting.entries > MaxEntriesInAll)
            break;
        if (item.IsSilence())
            AddSilence(item.GetLength());
        else
            AddFile(FindListEntry(item.GetPath(), folder));
    }
}

void SSFromList::AddFile(const std::string& path) {
    const std::string extension = GetPathExtension(path);
    const auto add = [this](const LSoundSource& source) {
        AddSource(source);
        source->Unload();
    };
    if (extension == ".wav") {
        add(LWaveFile::OpenSource(path.c_str()));
    } else if (extension == ".tdf") {
        SonvireData tone;
        tone.ReadFromFile(path.c_str());
        add(OpenToneEngine(tone));
    } else if (extension == ".tdl") {
        add(OpenToneList(path));
    } else {
        LShowMessageBox("Unrecognized file type",
                        "File type of extension \"" + extension + "\" is not recognized as a tone file.",
                        LMessageButtons::OkCancel);
    }
}

LSoundSource OpenToneList(const std::string& path) {
    if (!MayGoDeeper()) {
        TellTooDeep(path);
        return {};
    }
    LList<ToneItem> list;
    GetToneListFromFile(list, path.c_str());
    return SSFromList(list, GetFolder(path)).OpenSource();
}

std::string FindListEntry(const std::string& path, const std::string& folder) {
    if (folder.empty() || path.empty() || path.front() == '/' || FileExists(path.c_str()))
        return path;
    const std::string beside = folder + "/" + path;
    return FileExists(beside.c_str()) ? beside : path;
}
