#pragma once

class QWidget;
class Recovery;

/// Offers the texts that an earlier run left behind, one by one with a comparison: take, keep for later or throw
/// away. Shows nothing if there are none. Closing the window keeps what was not decided.
void OfferRecovered(QWidget* owner, Recovery& recovery);
