#include "FindingListener.h"

#include "Environment.h"

FindingListener::FindingListener(Environment &environment) : listeners(environment.listeners)
{
    listeners.Add(this);
}

FindingListener::~FindingListener()
{
    listeners.Remove(this);
}
