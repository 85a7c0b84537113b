#pragma once

#include "CommandHandler.h"

/// A pipe that keeps what is written, with or without an IDE behind it.
class FakePipe : public IReportPipe
{
public:
    bool Open() override
    {
        ++opened;
        return open = served;
    }
    bool IsOpen() const override { return open; }
    void Write(QStringView text) override
    {
        EXPECT_TRUE(open);
        report += text;
    }
    void Close() override { open = false; }

    bool served = true;
    bool open = false;
    int opened = 0;
    QString report;
};
