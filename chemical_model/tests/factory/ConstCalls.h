#pragma once

#include "SharedObjects.h"

#include <QList>

#include <string>
#include <utility>

/// \file
/// Every function that promises to write nothing, each with a call of it on objects that others
/// may use at the same time. One table for two questions: does it write, and does it race?

/// A function and a call of it.
struct ConstCall
{
    using Call = void (*)(const SharedObjects&);

    ConstCall(std::string name, Call example, bool isLong = false)
        : function(std::move(name))
        , call(example)
        , makesFactory(isLong)
    {
    }

    std::string function; ///< Its name without "chem::", as `Chain::operator==`.
    Call call;
    bool makesFactory; ///< Whether it makes a factory from nothing, which takes long.
};

/// The calls of all functions. One of several overloads has a call for each.
const QList<ConstCall>& constCalls();
