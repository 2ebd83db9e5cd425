// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Change notification: an XUTeller tells its XUListeners that it changed. Either side may be destroyed first. Tellers
// and listeners that know each other belong to one thread.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <vector>

class XUTeller;

/// Is notified of the changes of the tellers that it was added to.
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

/// Something whose changes listeners are notified of.
class QUARVELBASECORE_EXPORT XUTeller
{
public:
    XUTeller() = default;
    XUTeller(const XUTeller&) = delete;
    XUTeller& operator=(const XUTeller&) = delete;
    virtual ~XUTeller();

    /// Adding a listener twice has no effect.
    void addListener(XUListener& listener);
    void removeListener(XUListener& listener);

    /// Notifies every listener, in the order in which they were added. A listener may add or remove listeners, itself
    /// included, during the notification: one that is removed is not notified any more, one that is added is notified
    /// from the next time on.
    void tell();

private:
    friend class XUListener;
    std::vector<XUListener*> _listeners;
};
