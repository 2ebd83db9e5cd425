// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The book-keeping between tellers and listeners.
#include "QuarvelBaseCore/XUTeller.h"

#include <algorithm>

XUListener::~XUListener()
{
    for (XUTeller* teller : _tellers)
        std::erase(teller->_listeners, this);
}

void XUListener::told(XUTeller&) {}

XUTeller::~XUTeller()
{
    for (XUListener* listener : _listeners)
        std::erase(listener->_tellers, this);
}

void XUTeller::addListener(XUListener& listener)
{
    if (std::ranges::find(_listeners, &listener) != _listeners.end())
        return;
    _listeners.push_back(&listener);
    listener._tellers.push_back(this);
}

void XUTeller::removeListener(XUListener& listener)
{
    std::erase(_listeners, &listener);
    std::erase(listener._tellers, this);
}

void XUTeller::tell()
{
    const std::vector<XUListener*> toTell = _listeners;
    for (XUListener* listener : toTell)
        if (std::ranges::find(_listeners, listener) != _listeners.end())
            listener->told(*this);
}
