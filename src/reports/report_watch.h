// Who is told how the lines and counts of a report come about.
#pragma once

#include <string_view>

#include "reports/layout.h"
#include "reports/statistics.h"
#include "xml/xml_watch.h"

namespace zr {

/// Told by layouts and tables that are compiled against names made for it.
class ReportWatch : public XmlWatch {
  public:
    /// A reply is about to fill this response, whose text the reply's is.
    virtual void begin_report(const Response& response) = 0;
    /// It has filled it; the reply's tree is still there.
    virtual void end_report() = 0;

    /// The value of a piece is about to be written; pieces may be parts of others.
    virtual void begin(const layout::Piece& piece, XmlNode record) = 0;
    /// It was written as this text, without what stands around it.
    virtual void end(const layout::Piece& piece, std::string_view text) = 0;

    /// Where a counted record has what converts.
    struct CountedPaths {
        const XmlPath* event_date;
        const XmlPath* loaded;
        const XmlPath* outstanding;
    };
    /// A record was counted.
    virtual void counted(const StatisticsCategory& category, XmlNode record,
                         const CountedPaths& paths) = 0;

  protected:
    ~ReportWatch() = default;
};

}  // namespace zr
