// The elements of tly's XML that are read, and what each is.
#pragma once

#include <cstdint>

// What stands in an element that holds text.
enum Leaf : uint8_t {
    // clang-format off
    kName, kDate, kBytes, kFile, kLine, kType, kDescription, kInheritance, kTemplate, kExtension, kSignature,
    kLoc, kEloc, kLloc, kComments, kBlanks, kPhysical, kParameters, kReturns, kInterface, kCyclomatic, kTotal,
    kPublic, kProtected, kPrivate, kClasses, kFunctions, kDepth, kChildren, kParents,
    kCount, kNoticeCount, kTotalNotices, kVersion, kCommand, kReading, kTitle,
    kLeaves
    // clang-format on
};

// What an element is to the elements within it. Within kSkipped nothing is looked at.
enum class Part : uint8_t {
    // clang-format off
    kSkipped, kLeaf, kOutside, kJoined, kSlice, kWhole, kDocument, kReport, kFile, kFunction,
    kClass, kStruct, kInterface, kNestedClass, kNestedStruct, kNestedInterface, kNamespace, kAttributes, kMethods,
    kInheritanceTree, kTreeClass, kNotice, kLanguage
    // clang-format on
};

struct Element {
    const char *name;
    Part part;
    Leaf leaf = kLeaves;
};

// What the element name is within an element; null if nothing of it is read.
const Element *FindElement(Part within, const char *name);
