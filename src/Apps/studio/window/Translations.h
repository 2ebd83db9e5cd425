// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The application's texts in the language of the person.
#pragma once

class QCoreApplication;

/// Loads the translations of the toolkit and of the application, as far as there are any for the system's language.
void loadTranslations(QCoreApplication& application);
