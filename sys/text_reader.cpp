#include "sys/text_reader.h"

namespace {

bool IsLineEnd(int character) {
    return character == '\r' || character == '\n';
}

} // namespace

LTextReader::LTextReader(const char* path) : file(path), readable(file.IsRegular()) {}

LFailure LTextReader::GetFailure() const {
    return readable || !file.IsOpen() ? file.GetFailure() : "is not a regular file";
}

int LTextReader::Peek() {
    if (used == filled) {
        filled = readable && total < MaxBytes ? file.Read(buffer.data(), buffer.size()) : 0;
        total += filled;
        used = 0;
    }
    return filled == 0 ? EndOfFile : static_cast<unsigned char>(buffer[used]);
}

int LTextReader::Next() {
    const int character = Peek();
    if (character != EndOfFile)
        ++used;
    return character;
}

bool LTextReader::ReadLine(std::string& line) {
    line.clear();
    bool any = false;
    for (int character = Next(); character != EndOfFile; character = Next()) {
        if (IsLineEnd(character)) {
            const int after = Peek();
            if (IsLineEnd(after) && after != character)
                Next();
            return true;
        }
        any = true;
        if (line.size() < MaxLineLength)
            line += static_cast<char>(character);
    }
    return any;
}
