// Every text of a project once: paths, names and descriptions recur hundreds of thousands of times.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

// Names a text in the Texts that gave it; 0 is the empty text.
using TextId = uint32_t;

class Texts {
  public:
    Texts();
    // The number of text, which is copied if it is new here. Two equal texts have one number.
    TextId Intern(std::string_view text);
    // The text with this number, followed by a NUL; it stays where it is as long as this Texts lives. id must come from Intern.
    std::string_view operator[](TextId id) const { return texts_[id]; }
    size_t Count() const { return texts_.size(); }

  private:
    void Grow();

    std::vector<std::unique_ptr<char[]>> blocks_;
    char *free_ = nullptr; // in the last block
    size_t room_ = 0;
    std::vector<std::string_view> texts_; // by number
    std::vector<TextId> slots_;           // open addressing, a power of two; 0 is free
};
