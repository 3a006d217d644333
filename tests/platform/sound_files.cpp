#include "sound_files.h"

#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>
#include <QtEndian>
#include <cmath>
#include <numbers>
#include <zip.h>

namespace sound_files {

namespace {

constexpr int Cycle = 32, Rows = 64;

/// Bytes put one behind the other, numbers with their lowest byte first.
struct Bytes
{
    QByteArray All;

    Bytes& Text(const char* text, int size)
    {
        All += QByteArray(text).leftJustified(size, '\0');
        return *this;
    }
    Bytes& Fill(int count, int byte = 0)
    {
        All += QByteArray(count, char(byte));
        return *this;
    }
    Bytes& Small(std::initializer_list<int> bytes)
    {
        for (const int byte : bytes)
            All += char(byte);
        return *this;
    }
    template <class Number>
    Bytes& Put(std::initializer_list<int> numbers)
    {
        for (const int number : numbers) {
            const Number ordered = qToLittleEndian(Number(number));
            All.append(reinterpret_cast<const char*>(&ordered), sizeof(ordered));
        }
        return *this;
    }
    Bytes& Words(std::initializer_list<int> numbers) { return Put<quint16>(numbers); }
    Bytes& Longs(std::initializer_list<int> numbers) { return Put<quint32>(numbers); }
    Bytes& Paragraph() { return Fill(int(-All.size() & 15)); }
};

QList<qint16> Sine(double pitch, double rate, int count)
{
    QList<qint16> samples;
    for (int i = 0; i < count; ++i)
        samples << qint16(std::lround(12000 * std::sin(2 * std::numbers::pi * pitch * i / rate)));
    return samples;
}

/// One turn, 8 bits, sign as `add` says.
QByteArray Turn(int add = 0)
{
    QByteArray bytes;
    for (const qint16 sample : Sine(1, Cycle, Cycle))
        bytes += char(sample / 128 + add);
    return bytes;
}

} // namespace

QByteArray Wave(double pitch, double seconds)
{
    constexpr int Rate = 22050;
    const QList<qint16> samples = Sine(pitch, Rate, int(Rate * seconds));
    const int size = int(samples.size() * 2);
    Bytes wave;
    wave.Text("RIFF", 4).Longs({36 + size}).Text("WAVEfmt ", 8).Longs({16}).Words({1, 1}).Longs({Rate, Rate * 2});
    wave.Words({2, 16}).Text("data", 4).Longs({size});
    return wave.All + QByteArray(reinterpret_cast<const char*>(samples.data()), size);
}

QByteArray Midi()
{
    Bytes track;
    // A flute; the note is held for two quarters of half a second.
    track.Small({0, 0xC0, 73, 0, 0x90, 69, 110, 0x81, 0x40, 0x80, 69, 0, 0, 0xFF, 0x2F, 0});
    Bytes file;
    file.Text("MThd", 4).Small({0, 0, 0, 6, 0, 0, 0, 1, 0, 96}).Text("MTrk", 4);
    file.Small({0, 0, 0, int(track.All.size())});
    return file.All + track.All;
}

QByteArray Mp3(double seconds)
{
    // Comes with libraries of the player's own, without a header.
    QLibrary lame(QStringLiteral("mp3lame"), 0);
    const auto call = [&]<class Result, class... Arguments>(Result (*)(Arguments...), const char* name) {
        return reinterpret_cast<Result (*)(Arguments...)>(lame.resolve(name));
    };
    using Set = int (*)(void*, int);
    using End = int (*)(void*);
    const auto init = call(static_cast<void* (*)()>(nullptr), "lame_init");
    if (!init)
        return {};
    void* const coder = init();
    for (const auto& [name, value] :
         {std::pair{"lame_set_num_channels", 1}, {"lame_set_in_samplerate", 44100}, {"lame_set_mode", 3}})
        call(Set(), name)(coder, value);
    call(End(), "lame_init_params")(coder);
    const QList<qint16> samples = Sine(440, 44100, int(44100 * seconds));
    QByteArray coded(samples.size() * 2 + 16384, '\0');
    using Encode = int (*)(void*, const qint16*, const qint16*, int, char*, int);
    using Flush = int (*)(void*, char*, int);
    int size = call(Encode(), "lame_encode_buffer")(coder, samples.data(), samples.data(), int(samples.size()),
                                                    coded.data(), int(coded.size()));
    size += call(Flush(), "lame_encode_flush")(coder, coded.data() + size, int(coded.size()) - size);
    call(End(), "lame_close")(coder);
    return coded.left(size);
}

QByteArray Mod()
{
    Bytes file;
    file.Text("tone", 20).Text("sine", 22);
    for (const int word : {Cycle / 2, 64, 0, Cycle / 2}) // big words; the volume is the low byte of its own
        file.Small({word >> 8, word & 0xFF});
    for (int sample = 1; sample < 31; ++sample)
        file.Fill(29).Small({1});
    file.Small({1, 127}).Fill(128).Text("M.K.", 4);
    file.Small({254 >> 8, 254 & 0xFF, 0x10, 0}).Fill(Rows * 16 - 4);
    return file.All + Turn();
}

QByteArray S3m()
{
    Bytes file;
    file.Text("tone", 28).Small({0x1A, 16}).Words({0, 2, 1, 1, 0, 0x1320, 2}).Text("SCRM", 4);
    file.Small({64, 6, 125, 0xB0, 0, 0}).Fill(10).Small({0}).Fill(31, 0xFF).Small({0, 0xFF});
    file.Words({0x70 / 16, 0xC0 / 16}).Paragraph();
    file.Small({1}).Fill(12).Small({0}).Words({0x110 / 16}).Longs({Cycle, 0, Cycle}).Small({64, 0, 0, 1});
    file.Longs({8363}).Fill(12).Text("sine", 28).Text("SCRS", 4);
    file.Words({4 + Rows}).Small({0x20, 0x49, 1}).Fill(Rows).Paragraph();
    file.All.resize(0x110);
    return file.All + Turn(128);
}

QByteArray Xm()
{
    Bytes file;
    file.Text("Extended Module: ", 17).Text("tone", 20).Small({0x1A}).Text("test", 20).Words({0x104});
    file.Longs({276}).Words({1, 0, 2, 1, 1, 1, 6, 125}).Fill(256);
    const int packed = 3 + 1 + (Rows - 1) * 2;
    file.Longs({9}).Small({0}).Words({Rows, packed}).Small({0x83, 58, 1, 0x80}).Fill((Rows - 1) * 2, 0x80);
    file.Longs({263}).Text("sine", 22).Small({0}).Words({1}).Longs({40}).Fill(263 - 33);
    file.Longs({Cycle, 0, Cycle}).Small({64, 0, 1, 128, 0, 0}).Text("sine", 22);
    char before = 0;
    for (const char sample : Turn()) {
        file.Small({sample - before});
        before = sample;
    }
    return file.All;
}

QByteArray It()
{
    Bytes file;
    file.Text("IMPM", 4).Text("tone", 26).Words({0, 2, 0, 1, 1, 0x214, 0x200, 9, 0});
    file.Small({128, 48, 6, 125, 128, 0}).Words({0}).Longs({0, 0}).Fill(64, 32).Fill(64, 64).Small({0, 0xFF});
    const int sample = int(file.All.size()) + 8, pattern = sample + 80, data = pattern + 8 + 4 + Rows;
    file.Longs({sample, pattern}).Text("IMPS", 4).Fill(13).Small({64, 0x11, 64}).Text("sine", 26).Small({1, 32});
    file.Longs({Cycle, 0, Cycle, 8363, 0, 0, data, 0});
    file.Words({4 + Rows, Rows}).Longs({0}).Small({0x81, 3, 69, 1}).Fill(Rows);
    return file.All + Turn();
}

QByteArray Zipped(const QList<QByteArray>& entries)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zip"));
    zip_t* const archive = zip_open(QFile::encodeName(path), ZIP_CREATE, nullptr);
    for (const QByteArray& entry : entries) {
        const QByteArray name = QByteArray::number(zip_get_num_entries(archive, 0));
        zip_file_add(archive, name, zip_source_buffer(archive, entry.constData(), zip_uint64_t(entry.size()), 0), 0);
    }
    zip_close(archive);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace sound_files
