// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Change notification: an XUTeller tells its XUListeners that it changed. Either side may be destroyed first. Tellers
// and listeners that know each other belong to one thread.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <vector>

class XUTeller;

/// Hears of the changes of the tellers that it was added to.
class QUARVELBASECORE_EXPORT XUListener
{
public:
    XUListener() = default;
    XUListener(const XUListener&) = delete;
    XUListener& operator=(const XUListener&) = delete;
    virtual ~XUListener();

    /// The teller changed.
    virtual void told(XUTeller& teller);

private:
    friend class XUTeller;
    std::vector<XUTeller*> _tellers;
};

/// Something whose changes others want to hear of.
class QUARVELBASECORE_EXPORT XUTeller
{
public:
    XUTeller() = default;
    XUTeller(const XUTeller&) = delete;
    XUTeller& operator=(const XUTeller&) = delete;
    virtual ~XUTeller();

    /// A listener that was added already is not added again.
    void addListener(XUListener& listener);
    void removeListener(XUListener& listener);

    /// Tells every listener, in the order in which they were added. A listener may add or remove listeners, itself
    /// included, while it is told; one that is removed in the middle is not told any more, one that is added is told
    /// from the next time on.
    void tell();

private:
    friend class XUListener;
    std::vector<XUListener*> _listeners;
};
