/// @file
/// An empty window. Required: nothing shows it, the program has no splash screen.
#pragma once

#include <QWidget>

class SplashFrm : public QWidget {
    Q_OBJECT

public:
    explicit SplashFrm(QWidget *parent = nullptr) : QWidget(parent) { setObjectName(QStringLiteral("SplashFrm")); }
};
