#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

class ConstVisitorBase;
class VisitorBase;

/// What a visitor can be led through: documents, pages, contents and content objects.
class ORV_EXPORT Visitable
{
public:
    virtual ~Visitable();

    /// Calls `Visit` of the visitor for this item, then leads the visitor through what is below it if that
    /// returned true, then calls `EndVisit`.
    virtual void Accept(ConstVisitorBase& visitor) const = 0;
    virtual void Accept(VisitorBase& visitor) = 0;

protected:
    Visitable() = default;
    Visitable(const Visitable&) = delete;
    Visitable& operator=(const Visitable&) = delete;

    /// Leads the visitor through what is directly below this item. The default does nothing.
    virtual void PropagateVisitorSelf(ConstVisitorBase& visitor) const;
    virtual void PropagateVisitorSelf(VisitorBase& visitor);
};

} // namespace OrvDoc
