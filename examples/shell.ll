source_filename = "shell.cpp"
declare { %class.shell__Parser*, %struct.shell__Variable* } @llvm.dbg.order()
%struct.shell__Command = type { i8*, void (%class.shell__Parser*)* }
%class.shell__Parser = type { i8*, i8, i8 }
%struct.shell__Variable = type { %struct.shell__Variable*, [8 x i8], i32 }
@_str = private constant [6 x i8] c"print\00"
@_str_1 = private constant [4 x i8] c"let\00"
@_str_2 = private constant [5 x i8] c"list\00"
@_ZN5shellL8commandsE = internal constant [3 x %struct.shell__Command] [%struct.shell__Command { i8* getelementptr ([6 x i8], [6 x i8]* @_str, i32 0, i32 0), void (%class.shell__Parser*)* @_ZN5shellL8do_printERNS_6ParserE }, %struct.shell__Command { i8* getelementptr ([4 x i8], [4 x i8]* @_str_1, i32 0, i32 0), void (%class.shell__Parser*)* @_ZN5shellL6do_letERNS_6ParserE }, %struct.shell__Command { i8* getelementptr ([5 x i8], [5 x i8]* @_str_2, i32 0, i32 0), void (%class.shell__Parser*)* @_ZN5shellL7do_listERNS_6ParserE }]
@_str_3 = private constant [6 x i8] c"error\00"
@_ZN5shellL9variablesE = internal global %struct.shell__Variable* null
@_str_4 = private constant [6 x i8] c"no =\0A\00"
@_ZN5shellL4usedE = internal global i16 0
@_ZN5shellL4poolE = internal global [6 x %struct.shell__Variable] zeroinitializer
@_str_5 = private constant [4 x i8] c" = \00"
declare void @llvm.dbg.declare(metadata, metadata, metadata)
declare void @put_char(i8 signext)
define zeroext i1 @execute(i8* %line) {
entry:
  %line.addr = alloca i8*
  %parser = alloca %class.shell__Parser
  %name = alloca [8 x i8]
  %__range1 = alloca [3 x %struct.shell__Command]*
  %__begin1 = alloca %struct.shell__Command*
  %__end1 = alloca %struct.shell__Command*
  %command = alloca %struct.shell__Command*
  %0 = load i8*, i8** %line.addr
  call void @_ZN5shell6ParserC2EPKc(%class.shell__Parser* %parser, i8* %0)
  %1 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%class.shell__Parser* %parser, i8* %1, i16 8)
  store [3 x %struct.shell__Command]* @_ZN5shellL8commandsE, [3 x %struct.shell__Command]** %__range1
  store %struct.shell__Command* getelementptr ([3 x %struct.shell__Command], [3 x %struct.shell__Command]* @_ZN5shellL8commandsE, i16 0, i16 0), %struct.shell__Command** %__begin1
  store %struct.shell__Command* getelementptr ([3 x %struct.shell__Command], [3 x %struct.shell__Command]* @_ZN5shellL8commandsE, i64 1, i16 0), %struct.shell__Command** %__end1
  br label %for.cond0

for.cond0:
  %2 = load %struct.shell__Command*, %struct.shell__Command** %__begin1
  %3 = load %struct.shell__Command*, %struct.shell__Command** %__end1
  %4 = icmp ne %struct.shell__Command* %2, %3
  br i1 %4, label %for.body0, label %for.end0

for.body0:
  %5 = load %struct.shell__Command*, %struct.shell__Command** %__begin1
  store %struct.shell__Command* %5, %struct.shell__Command** %command
  %6 = load %struct.shell__Command*, %struct.shell__Command** %command
  %7 = getelementptr inbounds %struct.shell__Command, %struct.shell__Command* %6, i32 0, i32 0
  %8 = load i8*, i8** %7
  %9 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %10 = call i1 @_ZN5shellL4sameEPKcS1_(i8* %8, i8* %9)
  br i1 %10, label %if.then1, label %if.end1

if.then1:
  %11 = load %struct.shell__Command*, %struct.shell__Command** %command
  %12 = getelementptr inbounds %struct.shell__Command, %struct.shell__Command* %11, i32 0, i32 1
  %13 = load void (%class.shell__Parser*)*, void (%class.shell__Parser*)** %12
  call void %13(%class.shell__Parser* %parser)
  ret i1 true

if.end1:
  br label %for.inc0

for.inc0:
  %14 = load %struct.shell__Command*, %struct.shell__Command** %__begin1
  %15 = getelementptr inbounds %struct.shell__Command, %struct.shell__Command* %14, i32 1
  store %struct.shell__Command* %15, %struct.shell__Command** %__begin1
  br label %for.cond0

for.end0:
  ret i1 false
}

define linkonce_odr void @_ZN5shell6ParserC2EPKc(%class.shell__Parser* %this, i8* %line) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %line.addr = alloca i8*
  %0 = load i8*, i8** %line.addr
  %1 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %2 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %1, i32 0, i32 0
  store i8* %0, i8** %2
  %3 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %4 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %3, i32 0, i32 1
  store i8 0, i8* %4
  ret void
}

define linkonce_odr void @_ZN5shell6Parser4skipEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  br label %while.cond0

while.cond0:
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %0, i32 0, i32 0
  %2 = load i8*, i8** %1
  %3 = load i8, i8* %2
  %4 = sext i8 %3 to i16
  %5 = icmp eq i16 %4, 32
  br i1 %5, label %while.body0, label %while.end0

while.body0:
  %6 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %7 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %6, i32 0, i32 0
  %8 = load i8*, i8** %7
  %9 = getelementptr inbounds i8, i8* %8, i32 1
  %10 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %11 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %10, i32 0, i32 0
  store i8* %9, i8** %11
  br label %while.cond0

while.end0:
  ret void
}

define linkonce_odr void @_ZN5shell6Parser4wordEPci(%class.shell__Parser* %this, i8* %into, i16 %size) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %into.addr = alloca i8*
  %size.addr = alloca i16
  %length = alloca i16
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  call void @_ZN5shell6Parser4skipEv(%class.shell__Parser* %0)
  store i16 0, i16* %length
  br label %while.cond0

while.cond0:
  %1 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %2 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %1, i32 0, i32 0
  %3 = load i8*, i8** %2
  %4 = load i8, i8* %3
  %5 = call i1 @_ZN5shellL9is_letterEc(i8 %4)
  br i1 %5, label %lor.end1, label %lor.rhs2

lor.rhs2:
  %6 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %7 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %6, i32 0, i32 0
  %8 = load i8*, i8** %7
  %9 = load i8, i8* %8
  %10 = call i1 @_ZN5shellL8is_digitEc(i8 %9)
  %11 = icmp ne i1 %10, false
  br label %lor.end1

lor.end1:
  %12 = phi i1 [ true, %while.cond0 ], [ %11, %lor.rhs2 ]
  br i1 %12, label %while.body0, label %while.end0

while.body0:
  %13 = load i16, i16* %length
  %14 = load i16, i16* %size.addr
  %15 = sub i16 %14, 1
  %16 = icmp slt i16 %13, %15
  br i1 %16, label %if.then3, label %if.end3

if.then3:
  %17 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %18 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %17, i32 0, i32 0
  %19 = load i8*, i8** %18
  %20 = load i8, i8* %19
  %21 = load i8*, i8** %into.addr
  %22 = load i16, i16* %length
  %inc.0 = add i16 %22, 1
  store i16 %inc.0, i16* %length
  %23 = getelementptr inbounds i8, i8* %21, i16 %22
  store i8 %20, i8* %23
  br label %if.end3

if.end3:
  %24 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %25 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %24, i32 0, i32 0
  %26 = load i8*, i8** %25
  %27 = getelementptr inbounds i8, i8* %26, i32 1
  %28 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %29 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %28, i32 0, i32 0
  store i8* %27, i8** %29
  br label %while.cond0

while.end0:
  %30 = load i8*, i8** %into.addr
  %31 = load i16, i16* %length
  %32 = getelementptr inbounds i8, i8* %30, i16 %31
  store i8 0, i8* %32
  ret void
}

define internal zeroext i1 @_ZN5shellL4sameEPKcS1_(i8* %a, i8* %b) {
entry:
  %a.addr = alloca i8*
  %b.addr = alloca i8*
  br label %while.cond0

while.cond0:
  %0 = load i8*, i8** %a.addr
  %1 = load i8, i8* %0
  %2 = icmp ne i8 %1, 0
  br i1 %2, label %land.rhs2, label %land.end1

land.rhs2:
  %3 = load i8*, i8** %a.addr
  %4 = load i8, i8* %3
  %5 = sext i8 %4 to i16
  %6 = load i8*, i8** %b.addr
  %7 = load i8, i8* %6
  %8 = sext i8 %7 to i16
  %9 = icmp eq i16 %5, %8
  br label %land.end1

land.end1:
  %10 = phi i1 [ false, %while.cond0 ], [ %9, %land.rhs2 ]
  br i1 %10, label %while.body0, label %while.end0

while.body0:
  %11 = load i8*, i8** %a.addr
  %12 = getelementptr inbounds i8, i8* %11, i32 1
  store i8* %12, i8** %a.addr
  %13 = load i8*, i8** %b.addr
  %14 = getelementptr inbounds i8, i8* %13, i32 1
  store i8* %14, i8** %b.addr
  br label %while.cond0

while.end0:
  %15 = load i8*, i8** %a.addr
  %16 = load i8, i8* %15
  %17 = sext i8 %16 to i16
  %18 = load i8*, i8** %b.addr
  %19 = load i8, i8* %18
  %20 = sext i8 %19 to i16
  %21 = icmp eq i16 %17, %20
  ret i1 %21
}

define internal zeroext i1 @_ZN5shellL9is_letterEc(i8 signext %c) {
entry:
  %c.addr = alloca i8
  %0 = load i8, i8* %c.addr
  %1 = sext i8 %0 to i16
  %2 = icmp sge i16 %1, 97
  br i1 %2, label %land.lhs.true2, label %lor.lhs.false1

land.lhs.true2:
  %3 = load i8, i8* %c.addr
  %4 = sext i8 %3 to i16
  %5 = icmp sle i16 %4, 122
  br i1 %5, label %lor.end0, label %lor.lhs.false1

lor.lhs.false1:
  %6 = load i8, i8* %c.addr
  %7 = sext i8 %6 to i16
  %8 = icmp sge i16 %7, 65
  br i1 %8, label %land.lhs.true4, label %lor.rhs3

land.lhs.true4:
  %9 = load i8, i8* %c.addr
  %10 = sext i8 %9 to i16
  %11 = icmp sle i16 %10, 90
  br i1 %11, label %lor.end0, label %lor.rhs3

lor.rhs3:
  %12 = load i8, i8* %c.addr
  %13 = sext i8 %12 to i16
  %14 = icmp eq i16 %13, 95
  br label %lor.end0

lor.end0:
  %15 = phi i1 [ true, %land.lhs.true2 ], [ true, %land.lhs.true4 ], [ %14, %lor.rhs3 ]
  ret i1 %15
}

define internal zeroext i1 @_ZN5shellL8is_digitEc(i8 signext %c) {
entry:
  %c.addr = alloca i8
  %0 = load i8, i8* %c.addr
  %1 = sext i8 %0 to i16
  %2 = icmp sge i16 %1, 48
  br i1 %2, label %land.rhs1, label %land.end0

land.rhs1:
  %3 = load i8, i8* %c.addr
  %4 = sext i8 %3 to i16
  %5 = icmp sle i16 %4, 57
  br label %land.end0

land.end0:
  %6 = phi i1 [ false, %entry ], [ %5, %land.rhs1 ]
  ret i1 %6
}

define internal void @_ZN5shellL8do_printERNS_6ParserE(%class.shell__Parser* %parser) {
entry:
  %parser.addr = alloca %class.shell__Parser*
  %value = alloca i32
  %0 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %1 = call i32 @_ZN5shell6Parser10expressionEv(%class.shell__Parser* %0)
  store i32 %1, i32* %value
  %2 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %3 = call i1 @_ZNK5shell6Parser2okEv(%class.shell__Parser* %2)
  br i1 %3, label %if.then0, label %if.else0

if.then0:
  %4 = load i32, i32* %value
  call void @_ZN5shellL5printEl(i32 %4)
  br label %if.end0

if.else0:
  call void @_ZN5shellL5printEPKc(i8* getelementptr ([6 x i8], [6 x i8]* @_str_3, i16 0, i16 0))
  br label %if.end0

if.end0:
  call void @put_char(i8 10)
  ret void
}

define internal void @_ZN5shellL6do_letERNS_6ParserE(%class.shell__Parser* %parser) {
entry:
  %parser.addr = alloca %class.shell__Parser*
  %name = alloca [8 x i8]
  %value = alloca i32
  %variable = alloca %struct.shell__Variable*
  %0 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %1 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%class.shell__Parser* %0, i8* %1, i16 8)
  %2 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %3 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %2, i8 61)
  br i1 %3, label %if.then0, label %if.else0

if.then0:
  %4 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %5 = call i32 @_ZN5shell6Parser10expressionEv(%class.shell__Parser* %4)
  store i32 %5, i32* %value
  %6 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %7 = call %struct.shell__Variable* @_ZN5shellL4findEPKc(i8* %6)
  store %struct.shell__Variable* %7, %struct.shell__Variable** %variable
  %8 = load %struct.shell__Variable*, %struct.shell__Variable** %variable
  %9 = icmp eq %struct.shell__Variable* %8, null
  br i1 %9, label %if.then1, label %if.end1

if.then1:
  %10 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %11 = call %struct.shell__Variable* @_ZN5shellL4makeEPKc(i8* %10)
  store %struct.shell__Variable* %11, %struct.shell__Variable** %variable
  br label %if.end1

if.end1:
  %12 = load %struct.shell__Variable*, %struct.shell__Variable** %variable
  %13 = icmp ne %struct.shell__Variable* %12, null
  br i1 %13, label %land.lhs.true3, label %if.end2

land.lhs.true3:
  %14 = load %class.shell__Parser*, %class.shell__Parser** %parser.addr
  %15 = call i1 @_ZNK5shell6Parser2okEv(%class.shell__Parser* %14)
  br i1 %15, label %if.then2, label %if.end2

if.then2:
  %16 = load i32, i32* %value
  %17 = load %struct.shell__Variable*, %struct.shell__Variable** %variable
  %18 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %17, i32 0, i32 2
  store i32 %16, i32* %18
  br label %if.end2

if.end2:
  br label %if.end0

if.else0:
  call void @_ZN5shellL5printEPKc(i8* getelementptr ([6 x i8], [6 x i8]* @_str_4, i16 0, i16 0))
  br label %if.end0

if.end0:
  ret void
}

define internal void @_ZN5shellL7do_listERNS_6ParserE(%class.shell__Parser* %_unused0_) {
entry:
  %_unused0_.addr = alloca %class.shell__Parser*
  %v = alloca %struct.shell__Variable*
  %0 = load %struct.shell__Variable*, %struct.shell__Variable** @_ZN5shellL9variablesE
  store %struct.shell__Variable* %0, %struct.shell__Variable** %v
  br label %for.cond0

for.cond0:
  %1 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %2 = icmp ne %struct.shell__Variable* %1, null
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %4 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %3, i32 0, i32 1
  %5 = getelementptr inbounds [8 x i8], [8 x i8]* %4, i16 0, i16 0
  call void @_ZN5shellL5printEPKc(i8* %5)
  call void @_ZN5shellL5printEPKc(i8* getelementptr ([4 x i8], [4 x i8]* @_str_5, i16 0, i16 0))
  %6 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %7 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %6, i32 0, i32 2
  %8 = load i32, i32* %7
  call void @_ZN5shellL5printEl(i32 %8)
  call void @put_char(i8 10)
  br label %for.inc0

for.inc0:
  %9 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %10 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %9, i32 0, i32 0
  %11 = load %struct.shell__Variable*, %struct.shell__Variable** %10
  store %struct.shell__Variable* %11, %struct.shell__Variable** %v
  br label %for.cond0

for.end0:
  ret void
}

define linkonce_odr zeroext i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %this, i8 signext %c) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %c.addr = alloca i8
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  call void @_ZN5shell6Parser4skipEv(%class.shell__Parser* %0)
  %1 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %2 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %1, i32 0, i32 0
  %3 = load i8*, i8** %2
  %4 = load i8, i8* %3
  %5 = sext i8 %4 to i16
  %6 = load i8, i8* %c.addr
  %7 = sext i8 %6 to i16
  %8 = icmp ne i16 %5, %7
  br i1 %8, label %if.then0, label %if.end0

if.then0:
  ret i1 false

if.end0:
  %9 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %10 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %9, i32 0, i32 0
  %11 = load i8*, i8** %10
  %12 = getelementptr inbounds i8, i8* %11, i32 1
  %13 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %14 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %13, i32 0, i32 0
  store i8* %12, i8** %14
  ret i1 true
}

define linkonce_odr i32 @_ZN5shell6Parser6numberEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %value = alloca i32
  store i32 0, i32* %value
  br label %while.cond0

while.cond0:
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %0, i32 0, i32 0
  %2 = load i8*, i8** %1
  %3 = load i8, i8* %2
  %4 = call i1 @_ZN5shellL8is_digitEc(i8 %3)
  br i1 %4, label %while.body0, label %while.end0

while.body0:
  %5 = load i32, i32* %value
  %6 = mul i32 %5, 10
  %7 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %8 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %7, i32 0, i32 0
  %9 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %10 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %9, i32 0, i32 0
  %11 = load i8*, i8** %10
  %incdec.ptr.0 = getelementptr inbounds i8, i8* %11, i32 1
  store i8* %incdec.ptr.0, i8** %8
  %12 = load i8, i8* %11
  %13 = sext i8 %12 to i16
  %14 = sub i16 %13, 48
  %15 = sext i16 %14 to i32
  %16 = add i32 %6, %15
  store i32 %16, i32* %value
  br label %while.cond0

while.end0:
  %17 = load i32, i32* %value
  ret i32 %17
}

define weak i32 @_ZN5shell6Parser6factorEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %value = alloca i32
  %name = alloca [8 x i8]
  %variable = alloca %struct.shell__Variable*
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %0, i8 45)
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  %2 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %3 = call i32 @_ZN5shell6Parser6factorEv(%class.shell__Parser* %2)
  %4 = sub i32 0, %3
  ret i32 %4

if.end0:
  %5 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %6 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %5, i8 40)
  br i1 %6, label %if.then1, label %if.end1

if.then1:
  %7 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %8 = call i32 @_ZN5shell6Parser10expressionEv(%class.shell__Parser* %7)
  store i32 %8, i32* %value
  %9 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %10 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %9, i8 41)
  %11 = icmp eq i1 %10, false
  br i1 %11, label %if.then2, label %if.end2

if.then2:
  %12 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %13 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %12, i32 0, i32 1
  store i8 1, i8* %13
  br label %if.end2

if.end2:
  %14 = load i32, i32* %value
  ret i32 %14

if.end1:
  %15 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %16 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %15, i32 0, i32 0
  %17 = load i8*, i8** %16
  %18 = load i8, i8* %17
  %19 = call i1 @_ZN5shellL8is_digitEc(i8 %18)
  br i1 %19, label %if.then3, label %if.end3

if.then3:
  %20 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %21 = call i32 @_ZN5shell6Parser6numberEv(%class.shell__Parser* %20)
  ret i32 %21

if.end3:
  %22 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %23 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  call void @_ZN5shell6Parser4wordEPci(%class.shell__Parser* %22, i8* %23, i16 8)
  %24 = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 0
  %25 = call %struct.shell__Variable* @_ZN5shellL4findEPKc(i8* %24)
  store %struct.shell__Variable* %25, %struct.shell__Variable** %variable
  %26 = load %struct.shell__Variable*, %struct.shell__Variable** %variable
  %27 = icmp ne %struct.shell__Variable* %26, null
  br i1 %27, label %if.then4, label %if.end4

if.then4:
  %28 = load %struct.shell__Variable*, %struct.shell__Variable** %variable
  %29 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %28, i32 0, i32 2
  %30 = load i32, i32* %29
  ret i32 %30

if.end4:
  %31 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %32 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %31, i32 0, i32 1
  store i8 1, i8* %32
  ret i32 0
}

define weak i32 @_ZN5shell6Parser4termEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %value = alloca i32
  %by = alloca i32
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = call i32 @_ZN5shell6Parser6factorEv(%class.shell__Parser* %0)
  store i32 %1, i32* %value
  br label %for.cond0

for.cond0:
  br label %n.1

n.1:
  %2 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %3 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %2, i8 42)
  br i1 %3, label %if.then2, label %if.else2

if.then2:
  %4 = load i32, i32* %value
  %5 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %6 = call i32 @_ZN5shell6Parser6factorEv(%class.shell__Parser* %5)
  %7 = mul i32 %4, %6
  store i32 %7, i32* %value
  br label %if.end2

if.else2:
  %8 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %9 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %8, i8 47)
  br i1 %9, label %if.then3, label %if.else3

if.then3:
  %10 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %11 = call i32 @_ZN5shell6Parser6factorEv(%class.shell__Parser* %10)
  store i32 %11, i32* %by
  %12 = load i32, i32* %by
  %13 = icmp eq i32 %12, 0
  br i1 %13, label %if.then4, label %if.else4

if.then4:
  %14 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %15 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %14, i32 0, i32 1
  store i8 1, i8* %15
  br label %if.end4

if.else4:
  %16 = load i32, i32* %value
  %17 = load i32, i32* %by
  %18 = sdiv i32 %16, %17
  store i32 %18, i32* %value
  br label %if.end4

if.end4:
  br label %if.end3

if.else3:
  %19 = load i32, i32* %value
  ret i32 %19

if.end3:
  br label %if.end2

if.end2:
  br label %for.inc0

for.inc0:
  br label %for.cond0

for.end0:
  unreachable
}

define weak i32 @_ZN5shell6Parser10expressionEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %value = alloca i32
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = call i32 @_ZN5shell6Parser4termEv(%class.shell__Parser* %0)
  store i32 %1, i32* %value
  br label %for.cond0

for.cond0:
  br label %n.1

n.1:
  %2 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %3 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %2, i8 43)
  br i1 %3, label %if.then2, label %if.else2

if.then2:
  %4 = load i32, i32* %value
  %5 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %6 = call i32 @_ZN5shell6Parser4termEv(%class.shell__Parser* %5)
  %7 = add i32 %4, %6
  store i32 %7, i32* %value
  br label %if.end2

if.else2:
  %8 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %9 = call i1 @_ZN5shell6Parser6acceptEc(%class.shell__Parser* %8, i8 45)
  br i1 %9, label %if.then3, label %if.else3

if.then3:
  %10 = load i32, i32* %value
  %11 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %12 = call i32 @_ZN5shell6Parser4termEv(%class.shell__Parser* %11)
  %13 = sub i32 %10, %12
  store i32 %13, i32* %value
  br label %if.end3

if.else3:
  %14 = load i32, i32* %value
  ret i32 %14

if.end3:
  br label %if.end2

if.end2:
  br label %for.inc0

for.inc0:
  br label %for.cond0

for.end0:
  unreachable
}

define linkonce_odr zeroext i1 @_ZNK5shell6Parser2okEv(%class.shell__Parser* %this) {
entry:
  %this.addr = alloca %class.shell__Parser*
  %0 = load %class.shell__Parser*, %class.shell__Parser** %this.addr
  %1 = getelementptr inbounds %class.shell__Parser, %class.shell__Parser* %0, i32 0, i32 1
  %2 = load i8, i8* %1
  %3 = trunc i8 %2 to i1
  %4 = icmp eq i1 %3, false
  ret i1 %4
}

define internal void @_ZN5shellL5printEl(i32 %value) {
entry:
  %value.addr = alloca i32
  %0 = load i32, i32* %value.addr
  %1 = icmp slt i32 %0, 0
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  call void @put_char(i8 45)
  %2 = load i32, i32* %value.addr
  %3 = sub i32 0, %2
  store i32 %3, i32* %value.addr
  br label %if.end0

if.end0:
  %4 = load i32, i32* %value.addr
  %5 = icmp sgt i32 %4, 9
  br i1 %5, label %if.then1, label %if.end1

if.then1:
  %6 = load i32, i32* %value.addr
  %7 = sdiv i32 %6, 10
  call void @_ZN5shellL5printEl(i32 %7)
  br label %if.end1

if.end1:
  %8 = load i32, i32* %value.addr
  %9 = srem i32 %8, 10
  %10 = add i32 48, %9
  %11 = trunc i32 %10 to i8
  call void @put_char(i8 %11)
  ret void
}

define internal void @_ZN5shellL5printEPKc(i8* %text) {
entry:
  %text.addr = alloca i8*
  br label %while.cond0

while.cond0:
  %0 = load i8*, i8** %text.addr
  %1 = load i8, i8* %0
  %2 = icmp ne i8 %1, 0
  br i1 %2, label %while.body0, label %while.end0

while.body0:
  %3 = load i8*, i8** %text.addr
  %incdec.ptr.0 = getelementptr inbounds i8, i8* %3, i32 1
  store i8* %incdec.ptr.0, i8** %text.addr
  %4 = load i8, i8* %3
  call void @put_char(i8 %4)
  br label %while.cond0

while.end0:
  ret void
}

define internal %struct.shell__Variable* @_ZN5shellL4findEPKc(i8* %name) {
entry:
  %name.addr = alloca i8*
  %v = alloca %struct.shell__Variable*
  %0 = load %struct.shell__Variable*, %struct.shell__Variable** @_ZN5shellL9variablesE
  store %struct.shell__Variable* %0, %struct.shell__Variable** %v
  br label %for.cond0

for.cond0:
  %1 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %2 = icmp ne %struct.shell__Variable* %1, null
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %4 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %3, i32 0, i32 1
  %5 = getelementptr inbounds [8 x i8], [8 x i8]* %4, i16 0, i16 0
  %6 = load i8*, i8** %name.addr
  %7 = call i1 @_ZN5shellL4sameEPKcS1_(i8* %5, i8* %6)
  br i1 %7, label %if.then1, label %if.end1

if.then1:
  %8 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  ret %struct.shell__Variable* %8

if.end1:
  br label %for.inc0

for.inc0:
  %9 = load %struct.shell__Variable*, %struct.shell__Variable** %v
  %10 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %9, i32 0, i32 0
  %11 = load %struct.shell__Variable*, %struct.shell__Variable** %10
  store %struct.shell__Variable* %11, %struct.shell__Variable** %v
  br label %for.cond0

for.end0:
  ret %struct.shell__Variable* null
}

define internal %struct.shell__Variable* @_ZN5shellL4makeEPKc(i8* %name) {
entry:
  %name.addr = alloca i8*
  %fresh = alloca %struct.shell__Variable*
  %i = alloca i16
  %0 = load i16, i16* @_ZN5shellL4usedE
  %1 = icmp eq i16 %0, 6
  br i1 %1, label %if.then0, label %if.end0

if.then0:
  ret %struct.shell__Variable* null

if.end0:
  %2 = load i16, i16* @_ZN5shellL4usedE
  %inc.0 = add i16 %2, 1
  store i16 %inc.0, i16* @_ZN5shellL4usedE
  %3 = getelementptr inbounds [6 x %struct.shell__Variable], [6 x %struct.shell__Variable]* @_ZN5shellL4poolE, i16 0, i16 %2
  store %struct.shell__Variable* %3, %struct.shell__Variable** %fresh
  store i16 0, i16* %i
  br label %while.cond1

while.cond1:
  %4 = load i8*, i8** %name.addr
  %5 = load i16, i16* %i
  %6 = getelementptr inbounds i8, i8* %4, i16 %5
  %7 = load i8, i8* %6
  %8 = icmp ne i8 %7, 0
  br i1 %8, label %land.rhs3, label %land.end2

land.rhs3:
  %9 = load i16, i16* %i
  %10 = icmp slt i16 %9, 7
  br label %land.end2

land.end2:
  %11 = phi i1 [ false, %while.cond1 ], [ %10, %land.rhs3 ]
  br i1 %11, label %while.body1, label %while.end1

while.body1:
  %12 = load i8*, i8** %name.addr
  %13 = load i16, i16* %i
  %14 = getelementptr inbounds i8, i8* %12, i16 %13
  %15 = load i8, i8* %14
  %16 = load %struct.shell__Variable*, %struct.shell__Variable** %fresh
  %17 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %16, i32 0, i32 1
  %18 = load i16, i16* %i
  %19 = getelementptr inbounds [8 x i8], [8 x i8]* %17, i16 0, i16 %18
  store i8 %15, i8* %19
  %20 = load i16, i16* %i
  %21 = add i16 %20, 1
  store i16 %21, i16* %i
  br label %while.cond1

while.end1:
  %22 = load %struct.shell__Variable*, %struct.shell__Variable** %fresh
  %23 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %22, i32 0, i32 1
  %24 = load i16, i16* %i
  %25 = getelementptr inbounds [8 x i8], [8 x i8]* %23, i16 0, i16 %24
  store i8 0, i8* %25
  %26 = load %struct.shell__Variable*, %struct.shell__Variable** @_ZN5shellL9variablesE
  %27 = load %struct.shell__Variable*, %struct.shell__Variable** %fresh
  %28 = getelementptr inbounds %struct.shell__Variable, %struct.shell__Variable* %27, i32 0, i32 0
  store %struct.shell__Variable* %26, %struct.shell__Variable** %28
  %29 = load %struct.shell__Variable*, %struct.shell__Variable** %fresh
  store %struct.shell__Variable* %29, %struct.shell__Variable** @_ZN5shellL9variablesE
  %30 = load %struct.shell__Variable*, %struct.shell__Variable** %fresh
  ret %struct.shell__Variable* %30
}

