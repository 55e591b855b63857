/// Late-bound objects that live in memory: the forms of a host without windows, and of tests.
///
///     auto menu = std::make_shared<MemoryControlArray>(5);   // elements 0 to 4
///     auto form = std::make_shared<MemoryObject>();
///     form->add("mnuFileRecentJobs", menu);
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/object.h"

namespace t_gencvf {

/// Properties and methods by name.
class MemoryObject : public Object {
   public:
    using Method = std::function<Variant(Arguments)>;

    explicit MemoryObject(std::string typeName = "MemoryObject") : typeName_(std::move(typeName)) {}

    MemoryObject& add(std::string_view property, Variant value);
    MemoryObject& addMethod(std::string_view name, Method method);

    /// A property; with arguments, the default member of the object that it holds. Error 438: no such
    /// property; 450: arguments for a property that holds no object; 91: for one that holds Nothing.
    Variant get(std::string_view member, Arguments arguments = {}) override;
    void let(std::string_view member, const Variant& value, Arguments arguments = {}) override;
    Variant call(std::string_view member, Arguments arguments = {}) override;
    std::string_view typeName() const override { return typeName_; }

   private:
    std::string typeName_;
    std::map<std::string, Variant> properties_;  // by upper-case name
    std::map<std::string, Method> methods_;
};

/// Controls that are told apart by an index from 0 on: those of one name, or all of a form. Members: `Count`,
/// and as the default member the element at an index (error 340 where there is none).
class MemoryControlArray : public Object {
   public:
    explicit MemoryControlArray(int count = 0);

    /// Appends a control.
    std::shared_ptr<MemoryObject> add(std::string typeName);

    /// The element at `index`, which must exist.
    MemoryObject& element(int index) { return *elements_.at(static_cast<std::size_t>(index)); }

    Variant get(std::string_view member, Arguments arguments = {}) override;
    void let(std::string_view member, const Variant& value, Arguments arguments = {}) override;
    Variant call(std::string_view member, Arguments arguments = {}) override;
    std::string_view typeName() const override { return "MemoryControlArray"; }

   private:
    std::vector<std::shared_ptr<MemoryObject>> elements_;
};

}  // namespace t_gencvf
