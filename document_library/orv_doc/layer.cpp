#include <orv_doc/layer.h>

#include <orv_doc/layer_properties.h>
#include <orv_doc/visitor.h>

namespace OrvDoc
{

namespace
{

/// Null for a logical expression.
LayerProperties* GetProperties(const Layer::Membership& membership)
{
    const auto* layer = boost::get<std::shared_ptr<LayerProperties>>(&membership);
    return layer ? layer->get() : nullptr;
}

} // namespace

Layer::Layer(const Membership& givenMembership) : Group(Flags::Default), membership(givenMembership) {}

Layer::~Layer() = default;

void Layer::SetName(const std::string& name)
{
    LayerProperties* const properties = GetProperties(membership);
    if (!properties)
        return Group::SetName(name);
    properties->SetName(name);
    NotifyChanged(WhatChangedFlags::Name);
}

const std::string& Layer::GetName() const
{
    const LayerProperties* const properties = GetProperties(membership);
    return properties ? properties->GetName() : Group::GetName();
}

void Layer::ContentChangedSelf(Content* oldContent, Content* newContent)
{
    Group::ContentChangedSelf(oldContent, newContent);
}

void Layer::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Layer::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

} // namespace OrvDoc
