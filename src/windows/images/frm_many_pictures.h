#pragma once

#include "platform/images/image_making.h"

#include <QStringList>

class QWidget;

/// What the Lab has chosen, as the other window's start.
struct ConversionWishes
{
    int Colours = 256;
    images::Quantizer Method = images::Quantizer::Wu;
    bool KeepBlack = true, SeeThroughBlack = true;
};

/// "Convert Many Pictures": the pictures of `files`, folders among them, become PCX or PNG files in a folder. Returns
/// when the window is closed.
void RunManyPicturesWindow(QWidget* owner, const QStringList& files, const ConversionWishes& wishes);
