// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StartPage: what the window shows while nothing is open.
#pragma once

#include <QWidget>

class QCommandLinkButton;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QVBoxLayout;
class RecentFiles;

class StartPage : public QWidget
{
    Q_OBJECT

public:
    explicit StartPage(RecentFiles& recent, QWidget* parent = nullptr);

Q_SIGNALS:
    void importRequested();
    void openRequested();
    void exampleRequested();
    void recentRequested(const QString& path);
    void helpRequested();

private:
    void request(const QListWidgetItem* item);
    QWidget* heading();
    void addScrolled(QWidget& page);
    void addChoices(QVBoxLayout& layout);
    void addRecent(QVBoxLayout& layout);
    void addTour(QVBoxLayout& layout, const QFont& titleFont);
    void refill();
    void refreshIcons();
    void changeEvent(QEvent* event) override;

    RecentFiles& _recent;
    QList<std::pair<QCommandLinkButton*, QString>> _choices;
    QLabel* _recentTitle;
    QListWidget* _list;
};
