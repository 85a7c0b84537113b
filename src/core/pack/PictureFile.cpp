// SPDX-License-Identifier: MIT
#include "PictureFile.h"

PictureFile::PictureFile(PackContext &packContext, Request request)
    : context(packContext), path(std::move(request.path)), converts(request.converts)
{
    if (converts)
        source = context.files.Find(path);
    else
        file = context.files.Open(path);
}

bool PictureFile::BeginAhead()
{
    if (!converts || !IsThere() || !NeedImageConvert(path))
        return true;
    if (!conversion)
        conversion.emplace(context.Env(), source, context.scratch, context.converters);
    return conversion->BeginAhead();
}

int PictureFile::Add(const std::function<int(const PackFile &, const QString &)> &add)
{
    if (!converts)
        return add(file, path);
    if (context.trial)
        return AddMeasured(add);
    if (!conversion)
        conversion.emplace(context.Env(), source, context.scratch, context.converters);
    if (conversion->Finish() != 0)
        return PACK_NOT_THERE;
    return add(conversion->Take(), QString::fromUtf8(conversion->Target()));
}

/// Calls `add` with the source, which has the size of the converted picture.
int PictureFile::AddMeasured(const std::function<int(const PackFile &, const QString &)> &add) const
{
    const PackTrial &trial = *context.trial;
    QString fault;
    std::optional<quint64> size;
    if (!trial.isOfResources)
        fault = ObstacleToConversion(context.Env(), source, context.scratch);
    if (fault.isEmpty() && trial.sizes.picture)
        size = trial.sizes.picture(source, fault);
    if (!size) {
        context.Reason(fault.isEmpty() ? QStringLiteral("the picture can't be measured") : fault);
        return PACK_NOT_THERE;
    }
    PackFile made = context.files.OpenHost(source);
    made.size = qint64(*size);
    return add(made, path);
}

PictureQueue::PictureQueue(PackContext &packContext, std::vector<PictureFile::Request> pictureRequests)
    : context(packContext), requests(std::move(pictureRequests))
{
    context.converters.whenFree = [this] { BeginSome(); };
}

PictureQueue::~PictureQueue()
{
    context.converters.whenFree = nullptr;
    context.converters.BeginEnd(); // all at the same time; the pictures then end them one after the other
}

bool PictureQueue::Next()
{
    current.reset(); // deletes its file before another picture can need the name
    if (position == requests.size())
        return false;
    if (!context.trial)
        BeginSome();
    if (!ahead.empty()) {
        current = std::move(ahead.front());
        ahead.pop_front();
        begun -= begun > 0;
    }
    if (!current)
        current = std::make_unique<PictureFile>(context, requests[position]);
    ++position;
    return true;
}

/// Begins the conversions of the current picture and of the next ones, as far as converters are free.
void PictureQueue::BeginSome()
{
    const size_t most = context.converters.Ahead();
    while (begun < most && position + begun < requests.size()) {
        if (ahead.size() == begun) {
            const PictureFile::Request &request = requests[position + begun];
            ahead.push_back(request.converts ? std::make_unique<PictureFile>(context, request) : nullptr);
        }
        if (ahead[begun] && !ahead[begun]->BeginAhead())
            return;
        ++begun;
    }
}
