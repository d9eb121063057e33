// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The session manager of a desktop, for one client: says on standard output where
// it listens and what the client does, and is told on standard input, a word a
// line: "end" (of the session), "end-silently" (asking nothing of the user), "die".

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include <poll.h>
#include <unistd.h>

namespace {

SmsConn s_client = nullptr;
bool s_left = false;

void say(const char *text)
{
    std::puts(text);
    std::fflush(stdout);
}

Status onRegister(SmsConn connection, SmPointer, char *previousId)
{
    std::free(previousId);
    char *id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id);
    // As the protocol wants it of a client that is new.
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    return 1;
}

void onInteractRequest(SmsConn connection, SmPointer, int)
{
    say("asks");
    SmsInteract(connection);
}

void onInteractDone(SmsConn connection, SmPointer, Bool cancels)
{
    say(cancels ? "cancels" : "asked");
    if (cancels)
        SmsShutdownCancelled(connection);
}

void onSaveRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}

void onPhase2Request(SmsConn connection, SmPointer)
{
    SmsSaveYourselfPhase2(connection);
}

void onSaved(SmsConn connection, SmPointer, Bool success)
{
    say(success ? "saved" : "not saved");
    SmsSaveComplete(connection);
}

void onClosed(SmsConn connection, SmPointer, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    IceConn ice = SmsGetIceConnection(connection);
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(ice, False);
    IceCloseConnection(ice);
    s_client = nullptr;
    s_left = true;
}

void onSetProperties(SmsConn, SmPointer, int count, SmProp **properties)
{
    for (int i = 0; i < count; ++i)
        SmFreeProperty(properties[i]);
    std::free(properties);
}

void onDeleteProperties(SmsConn, SmPointer, int count, char **names)
{
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(names);
}

void onGetProperties(SmsConn connection, SmPointer)
{
    SmsReturnProperties(connection, 0, nullptr);
}

Status onNewClient(SmsConn connection, SmPointer, unsigned long *mask, SmsCallbacks *callbacks,
                   char **)
{
    s_client = connection;
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
            | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask
            | SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask
            | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client.callback = onRegister;
    callbacks->interact_request.callback = onInteractRequest;
    callbacks->interact_done.callback = onInteractDone;
    callbacks->save_yourself_request.callback = onSaveRequest;
    callbacks->save_yourself_phase2_request.callback = onPhase2Request;
    callbacks->save_yourself_done.callback = onSaved;
    callbacks->close_connection.callback = onClosed;
    callbacks->set_properties.callback = onSetProperties;
    callbacks->delete_properties.callback = onDeleteProperties;
    callbacks->get_properties.callback = onGetProperties;
    return 1;
}

Bool everyHostMay(char *)
{
    return True;
}

void onIceError(IceConn)
{
    s_client = nullptr;
    s_left = true;
}

bool obey(const std::string &word)
{
    if (!s_client)
        return false;
    if (word == "end")
        SmsSaveYourself(s_client, SmSaveBoth, True, SmInteractStyleAny, False);
    else if (word == "end-silently")
        SmsSaveYourself(s_client, SmSaveBoth, True, SmInteractStyleNone, False);
    else if (word == "die")
        SmsDie(s_client);
    else
        return false;
    IceFlush(SmsGetIceConnection(s_client));
    return true;
}

} // namespace

int main()
{
    char error[256] = "";
    char vendor[] = "test";
    char release[] = "1";
    int count = 0;
    IceListenObj *sockets = nullptr;
    if (!SmsInitialize(vendor, release, onNewClient, nullptr, everyHostMay, sizeof error, error)
        || !IceListenForConnections(&count, &sockets, sizeof error, error)) {
        std::fprintf(stderr, "session_manager: %s\n", error);
        return 1;
    }
    for (int i = 0; i < count; ++i)
        IceSetHostBasedAuthProc(sockets[i], everyHostMay);
    IceSetIOErrorHandler(onIceError);
    char *address = IceComposeNetworkIdList(count, sockets);
    say(address);
    std::free(address);

    IceConn ice = nullptr;
    for (;;) {
        // One client: once it is there nobody else is waited for.
        pollfd waited[64] = {{STDIN_FILENO, POLLIN, 0}};
        nfds_t waiting = 1;
        if (ice) {
            waited[waiting++] = {IceConnectionNumber(ice), POLLIN, 0};
        } else {
            for (int i = 0; i < count && waiting < 64; ++i)
                waited[waiting++] = {IceGetListenConnectionNumber(sockets[i]), POLLIN, 0};
        }
        if (poll(waited, waiting, -1) < 0)
            return 1;
        if (waited[0].revents != 0) {
            std::string word;
            if (!std::getline(std::cin, word))
                return 0;
            if (!obey(word))
                say("nobody there");
        }
        if (ice && waited[1].revents != 0) {
            IceProcessMessages(ice, nullptr, nullptr);
            if (s_left)
                return 0;
        } else if (!ice) {
            for (nfds_t i = 1; i < waiting && !ice; ++i) {
                IceAcceptStatus status{};
                if (waited[i].revents != 0)
                    ice = IceAcceptConnection(sockets[i - 1], &status);
            }
        }
    }
}
