#pragma once

#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"
#include "services/registry_store.h"
#include "text/line_text.h"

#include <functional>
#include <map>

/// A clipboard that lives as long as its run.
class OwnClipboard : public TextClipboard
{
public:
    QString Text() const override { return text; }
    void SetText(const QString& wanted) override { text = wanted; }

private:
    QString text;
};

/// A stage without a window: the run works on a text that nobody sees.
class PlainStage : public RunStage, private TextScreen, private ProgressBarPort
{
public:
    explicit PlainStage(TextClipboard& clipboard, RegistryStore::Keeping keeping = RegistryStore::Keeping::Memory)
        : passedOn(clipboard), text(clipboard), registry(QString(), keeping)
    {
    }

    DocumentText& Target() override { return text; }
    LineText& TargetLines() { return text; }
    void ShowTarget(bool) override {}
    void ShowNow() override {}
    TextScreen& Screen() override { return *this; }
    ProgressBarPort& Bar() override { return *this; }
    TextClipboard& Clipboard() override { return passedOn; }
    void SetTurn(std::function<bool()> give) override { text.SetTurn(std::move(give)); }
    bool HasWindow() const override { return false; }
    RegistryStore& Registry() override { return registry; }
    Result<> SaveTarget(const QString& path) override
    {
        return WriteWithBackup(text, path).map([&path] {
            Frame.CurrentFolder = paths::FolderOfPath(path);
            Frame.CurrentFile = paths::FileNameOfPath(path);
        });
    }
    void ReportError(const MacroError& error) override
    {
        if (OnError)
            OnError(error);
    }
    void Printed(const QString& printed) override
    {
        if (OnPrint)
            OnPrint(printed);
    }
    QString SelectedMedia() const override { return {}; }

    std::function<void(const MacroError&)> OnError;
    std::function<void(const QString&)> OnPrint;

private:
    QString FontName() const override { return font; }
    double FontSize() const override { return points; }
    void SetFont(const QString& name, double size) override
    {
        font = name;
        points = size;
    }
    void SetColor(int slot, int bgr) override { colours[slot] = bgr; }
    int GetColor(int slot) const override
    {
        const auto found = colours.find(slot);
        return found == colours.end() ? 0 : found->second;
    }

    void Show(int most) override
    {
        maximum = most;
        progress = qMin(progress, most);
    }
    void SetValue(int value) override { progress = value; }
    void Hide() override {}
    int Maximum() const override { return maximum; }
    int Value() const override { return progress; }

    TextClipboard& passedOn;
    LineText text;
    RegistryStore registry;
    QString font;
    double points = 0;
    std::map<int, int> colours;
    int maximum = 1, progress = 0;
};
