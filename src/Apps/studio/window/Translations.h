// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The application's texts in the language of the person.
#pragma once

class QLocale;

/// Installs the translations of the toolkit, of the application and of the loaded plug-ins, as far as there are any for
/// the locale's languages. To be called from the main thread once the plug-ins are loaded and before windows are made.
void installTranslations(const QLocale& locale);
