{ A Free Pascal program without Qt that loads both libraries, and opens the stock card over a company file with rights
  and documents of its own. Texts are UTF-16, the program's own kind. The card is opened by the report library's export
  itself; once a session is there, all of its exports may be called.
  Usage: stock_card DESKTOP_LIBRARY REPORT_LIBRARY COMPANY_FILE GOOD }
program stock_card;

{$mode objfpc}{$H+}

uses
  {$ifdef unix} cwstring, {$endif}
  ctypes, dynlibs, Math, SysUtils;

const
  DESKTOP_DONE = 0;
  DESKTOP_UTF16 = 1;
  PERMISSION_PRINT = 23;

type
  PText = PUnicodeChar;

  TRights = record
    StructSize: cuint32;
    Context: Pointer;
    HavePermission: function(Context: Pointer; User: cint64; Part, Permission, ShowMessage, Logged: cint32;
      Text: PText): cint32; cdecl;
    SetUserEvent: procedure(Context: Pointer; Part, Permission: cint32; Code: cint64); cdecl;
    SeesPrices: function(Context: Pointer): cint32; cdecl;
  end;

  TDocuments = record
    StructSize: cuint32;
    Context: Pointer;
    Open: function(Context: Pointer; Kind: cint32; Code: cint64; Mode: cint32): cint32; cdecl;
    IsBusy: function(Context: Pointer; Kind: cint32): cint32; cdecl;
    IsShown: function(Context: Pointer; Kind: cint32): cint32; cdecl;
    UnsavedVouchers: function(Context: Pointer; Kind: PText): cint32; cdecl;
  end;

  TOptions = record
    StructSize: cuint32;
    Encoding, Look, Unused: cint32;
    Company, Login, Password, UserName: PText;
    UserCode: cint64;
    Title, SettingsFolder, Module: PText;
    Connection: Pointer;
    Rights: ^TRights;
    Documents: ^TDocuments;
    Settings, Messages, Waiting, Windows: Pointer;
  end;

var
  Create: function(constref Options: TOptions; out Session: Pointer): cint32; cdecl;
  Destroy: function(Session: Pointer): cint32; cdecl;
  Problem: function(Encoding: cint32): PText; cdecl;
  OpenKardex: procedure(Good, Store: cint32; FromDate, ToDate: PText); cdecl;

function HavePermission(Context: Pointer; User: cint64; Part, Permission, ShowMessage, Logged: cint32;
  Text: PText): cint32; cdecl;
begin
  WriteLn('right: user ', User, ', part ', Part, ', permission ', Permission);
  if Permission = PERMISSION_PRINT then Result := 0 else Result := 1;
end;

function SeesPrices(Context: Pointer): cint32; cdecl;
begin
  Result := 1;
end;

{ The program's own windows would open here. }
function OpenDocument(Context: Pointer; Kind: cint32; Code: cint64; Mode: cint32): cint32; cdecl;
begin
  WriteLn('document: kind ', Kind, ', number ', Code, ', mode ', Mode);
  Result := 1;
end;

procedure Load(Handle: TLibHandle; const Name: string; out Routine: Pointer);
begin
  Routine := GetProcedureAddress(Handle, Name);
  if Routine = nil then
  begin
    WriteLn(StdErr, 'no ', Name);
    Halt(2);
  end;
end;

function LoadFrom(const FileName: string): TLibHandle;
begin
  Result := LoadLibrary(FileName);
  if Result = NilHandle then
  begin
    WriteLn(StdErr, GetLoadErrorStr);
    Halt(2);
  end;
end;

procedure Check(Code: cint32);
begin
  if Code = DESKTOP_DONE then Exit;
  WriteLn(StdErr, UTF8Encode(UnicodeString(Problem(DESKTOP_UTF16))));
  Halt(1);
end;

var
  Desktop, Reports: TLibHandle;
  Options: TOptions;
  Rights: TRights;
  Documents: TDocuments;
  Session: Pointer;
  Company, UserName, Module: UnicodeString;
begin
  if ParamCount <> 4 then Halt(2);
  { C code expects that a division by zero is no trap. }
  SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, exPrecision]);
  Desktop := LoadFrom(ParamStr(1));
  Reports := LoadFrom(ParamStr(2));
  Load(Desktop, 'GoodsDesktop_Create', Pointer(Create));
  Load(Desktop, 'GoodsDesktop_Destroy', Pointer(Destroy));
  Load(Desktop, 'GoodsDesktop_Problem', Pointer(Problem));
  Load(Reports, 'Open_Kardex', Pointer(OpenKardex));

  FillChar(Rights, SizeOf(Rights), 0);
  Rights.StructSize := SizeOf(Rights);
  Rights.HavePermission := @HavePermission;
  Rights.SeesPrices := @SeesPrices;
  FillChar(Documents, SizeOf(Documents), 0);
  Documents.StructSize := SizeOf(Documents);
  Documents.Open := @OpenDocument;

  Module := UTF8Decode(ParamStr(2));
  Company := 'file:' + UTF8Decode(ParamStr(3));
  UserName := UTF8Decode('Ali');
  FillChar(Options, SizeOf(Options), 0);
  Options.StructSize := SizeOf(Options);
  Options.Encoding := DESKTOP_UTF16;
  Options.Company := PText(Company);
  Options.UserName := PText(UserName);
  Options.UserCode := 7;
  Options.Module := PText(Module);
  Options.Rights := @Rights;
  Options.Documents := @Documents;
  Check(Create(Options, Session));
  OpenKardex(StrToInt(ParamStr(4)), 0, nil, nil);
  Check(Destroy(Session));
  WriteLn('closed');
end.
