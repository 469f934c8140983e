// Who is told what is read of a reply: for those who check or explain a report. A reply that nobody
// watches costs nothing.
#pragma once

#include "xml/xml_document.h"

namespace zr {

/// Told of every value that is looked for in the documents parsed against names made for it.
class XmlWatch {
  public:
    XmlWatch() = default;
    XmlWatch(const XmlWatch&) = delete;
    XmlWatch& operator=(const XmlWatch&) = delete;

    /// A value was looked for from `context` on. `found` is the element that has it, absent where
    /// there is none; `attribute` its attribute's id, 0 where the value is the element's text.
    /// `path` is null where no path was asked for.
    virtual void read(XmlNode context, const XmlPath* path, XmlNode found, XmlNameId attribute) = 0;

  protected:
    ~XmlWatch() = default;
};

}  // namespace zr
