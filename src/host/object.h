/// Late-bound objects of the host: forms, controls, menu entries, grids, printers.
///
///     LateBound mainForm{form};
///     mainForm["mnuFileRecentJobs"](2)["Caption"] = "&3  C:\\Jobs\\Quarry.job";
///     const std::string caption = mainForm["mnuFileRecentJobs"](2)["Caption"].text();
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/variant.h"

namespace t_gencvf {

using t_genproc::ObjectPointer;
using t_genproc::Variant;
using Arguments = std::span<const Variant>;

/// Anything whose members are reached by name. Names are matched without regard to letter case; the empty
/// name is the object's default member (of a control array: the element at an index).
///
/// Each call raises 438 for a member that the object does not have, and whatever else the object finds wrong.
class Object {
   public:
    virtual ~Object() = default;
    virtual Variant get(std::string_view member, Arguments arguments = {}) = 0;
    virtual void let(std::string_view member, const Variant& value, Arguments arguments = {}) = 0;
    virtual Variant call(std::string_view member, Arguments arguments = {}) = 0;

    /// What kind of object it is: "TextBox", "Label", "MemoryObject".
    virtual std::string_view typeName() const = 0;
};

/// An object, or one of its members that is yet to be read, written or called: each step of an expression
/// reads the one before it, the last one does what it says. Error 91: Nothing stands where an object is
/// needed; 424: something else.
class LateBound {
   public:
    explicit LateBound(ObjectPointer object) : object_(std::move(object)) {}
    LateBound(const LateBound&) = default;
    LateBound(LateBound&&) noexcept = default;
    ~LateBound() = default;
    LateBound& operator=(const LateBound&) =
        delete;  // would read as a property let: say .get() for the value

    /// A member of the object that this expression stands for.
    LateBound operator[](std::string_view member) const;

    /// The same member with arguments, for example an index.
    template <class... Values>
    LateBound operator()(Values&&... values) const {
        LateBound indexed = *this;
        (indexed.arguments_.emplace_back(std::forward<Values>(values)), ...);
        return indexed;
    }

    Variant get() const;
    /// Whether it is an object with the typeName "TextBox".
    bool isTextBox() const;
    std::string text() const { return t_genproc::toText(get()); }
    void operator=(const Variant& value) const;

    template <class... Values>
    Variant call(Values&&... values) const {
        const std::vector<Variant> arguments{Variant(std::forward<Values>(values))...};
        return object().call(member_, arguments);
    }

   private:
    Object& object() const;
    ObjectPointer objectRead() const;

    ObjectPointer object_;
    std::string member_;  // empty: the object itself
    std::vector<Variant> arguments_;
};

}  // namespace t_gencvf
