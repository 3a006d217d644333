#pragma once

class EditorPane;

/// The pane's code list offers the words of Gemforge BASIC and the names of the pane's own text, each with its form.
void OfferCodeWords(EditorPane& code);
